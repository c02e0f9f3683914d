#include <VanticRestKit/trelvo/Dataset/detail/DatasetOperations.h>

#include <VanticRestKit/trelvo/Dataset/DatasetResponse.h>
#include <VanticRestKit/trelvo/Dataset/DatasetRoutes.h>

namespace VanticRestKit::detail {

namespace {

using Answer = Result<DatasetResponse, LoaderError>;

/// The one dataset that an answer must hold; `missing` is told where it holds none.
Result<DatasetContainer, TrelvoError> onlyDataset(const std::weak_ptr<TrelvoState>& state, Answer& answer,
                                                  const char* missing) {
    if (!answer) return generalFailure(answer.error());
    storeAuth(state, answer->auth);
    if (answer->data.empty()) return Failure(TrelvoError::unknown(missing));
    return std::move(answer->data.front());
}

}  // namespace

void getDataset(TrelvoState& state, GetDataset wanted, const TrelvoContext& context,
                TrelvoCompletion<std::vector<DatasetContainer>> completion) {
    using Value = std::vector<DatasetContainer>;
    runOperation<DatasetResponse, Value>(
        state, "getDataset", context, std::move(completion),
        [&](const std::string& uid, SourceSystem source) {
            return GetDatasetURI{.uid = uid,
                                 .source = source,
                                 .namespace_ = wanted.namespace_,
                                 .includePrivateData = wanted.includePrivateData,
                                 .includeFamilyData = wanted.includeFamilyData};
        },
        [weak = state.weak_from_this()](Answer& answer) -> Result<Value, TrelvoError> {
            if (weak.expired())
                return Failure(TrelvoError::unknown("Trelvo deallocated when request returned"));
            if (!answer && answer.error().is404Error()) return Failure(TrelvoError::datasetDoesNotExist());
            if (!answer) return generalFailure(answer.error());
            storeAuth(weak, answer->auth);
            return std::move(answer->data);
        });
}

void createDataset(TrelvoState& state, std::string namespace_, Dictionary dataset,
                   const TrelvoContext& context, TrelvoCompletion<DatasetContainer> completion) {
    runOperation<DatasetResponse, DatasetContainer>(
        state, "createDataset", context, std::move(completion),
        [&](const std::string& uid, SourceSystem source) {
            return CreateDatasetURI{.uid = uid,
                                    .source = source,
                                    .namespace_ = std::move(namespace_),
                                    .dataset = std::move(dataset)};
        },
        [weak = state.weak_from_this()](Answer& answer) {
            return onlyDataset(
                weak, answer,
                "In Trelvo.createDataset(), POST call to dataset endpoint was successful but response "
                "contained no datasets, where we would expect to receive the dataset just created.");
        });
}

void updateDataset(TrelvoState& state, std::string namespace_, Dictionary dataset,
                   const TrelvoContext& context, TrelvoCompletion<DatasetContainer> completion) {
    runOperation<DatasetResponse, DatasetContainer>(
        state, "updateDataset", context, std::move(completion),
        [&](const std::string& uid, SourceSystem source) {
            return UpdateDatasetURI{.uid = uid,
                                    .source = source,
                                    .namespace_ = std::move(namespace_),
                                    .dataset = std::move(dataset)};
        },
        [weak = state.weak_from_this()](Answer& answer) {
            return onlyDataset(
                weak, answer,
                "In Trelvo.updateDataset(), PATCH call to dataset endpoint was successful but response "
                "contained no datasets, where we would expect to receive the dataset just updated.");
        });
}

void deleteDataset(TrelvoState& state, std::string namespace_, const TrelvoContext& context,
                   TrelvoCompletion<void> completion) {
    runOperation<DatasetResponse, void>(
        state, "deleteDataset", context, std::move(completion),
        [&](const std::string& uid, SourceSystem source) {
            return DeleteDatasetURI{.uid = uid, .source = source, .namespace_ = std::move(namespace_)};
        },
        [weak = state.weak_from_this()](const Answer& answer) -> Result<void, TrelvoError> {
            if (!answer) return generalFailure(answer.error());
            storeAuth(weak, answer->auth);
            return {};
        });
}

}  // namespace VanticRestKit::detail
