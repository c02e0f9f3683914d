#include <VanticRestKit/trelvo/Dataset/detail/DatasetOperations.h>

#include <VanticRestKit/trelvo/Dataset/DatasetRoutes.h>

namespace VanticRestKit::detail {

namespace {

using Answer = Result<DatasetResponse, LoaderError>;
using Containers = std::vector<DatasetContainer>;

Result<Containers, TrelvoError> allDatasets(Answer& answer, TokenKeeper* keeper) {
    if (keeper == nullptr) return clientHasGone();
    if (!answer && answer.error().is404Error()) return Failure(TrelvoError::datasetDoesNotExist());
    if (!answer) return generalFailure(answer.error());
    keepAuth(keeper, answer->auth);
    return std::move(answer->data);
}

/// Returns the dataset of a response. If there is none, `missing` is the message of the error.
auto onlyDataset(const char* missing) {
    return [missing](Answer& answer, TokenKeeper* keeper) -> Result<DatasetContainer, TrelvoError> {
        if (!answer) return generalFailure(answer.error());
        keepAuth(keeper, answer->auth);
        if (answer->data.empty()) return Failure(TrelvoError::unknown(missing));
        return std::move(answer->data.front());
    };
}

}  // namespace

DatasetOperation<Containers> getDataset(GetDataset arguments) {
    return {.name = "getDataset",
            .route =
                [arguments = std::move(arguments)](const std::string& uid, SourceSystem source) {
                    return GetDatasetURI{.uid = uid,
                                         .source = source,
                                         .namespace_ = arguments.namespace_,
                                         .includePrivateData = arguments.includePrivateData,
                                         .includeFamilyData = arguments.includeFamilyData};
                },
            .conclude = allDatasets};
}

DatasetOperation<DatasetContainer> createDataset(std::string namespace_, Dictionary dataset) {
    return {.name = "createDataset",
            .route =
                [namespace_ = std::move(namespace_), dataset = std::move(dataset)](const std::string& uid,
                                                                                   SourceSystem source) {
                    return CreateDatasetURI{
                        .uid = uid, .source = source, .namespace_ = namespace_, .dataset = dataset};
                },
            .conclude = onlyDataset(
                "In Trelvo.createDataset(), POST call to dataset endpoint was successful but response "
                "contained no datasets, where we would expect to receive the dataset just created.")};
}

DatasetOperation<DatasetContainer> updateDataset(std::string namespace_, Dictionary dataset) {
    return {.name = "updateDataset",
            .route =
                [namespace_ = std::move(namespace_), dataset = std::move(dataset)](const std::string& uid,
                                                                                   SourceSystem source) {
                    return UpdateDatasetURI{
                        .uid = uid, .source = source, .namespace_ = namespace_, .dataset = dataset};
                },
            .conclude = onlyDataset(
                "In Trelvo.updateDataset(), PATCH call to dataset endpoint was successful but response "
                "contained no datasets, where we would expect to receive the dataset just updated.")};
}

DatasetOperation<void> deleteDataset(std::string namespace_) {
    return {.name = "deleteDataset",
            .route =
                [namespace_ = std::move(namespace_)](const std::string& uid, SourceSystem source) {
                    return DeleteDatasetURI{.uid = uid, .source = source, .namespace_ = namespace_};
                },
            .conclude = concludeWithoutValue<DatasetResponse>};
}

}  // namespace VanticRestKit::detail
