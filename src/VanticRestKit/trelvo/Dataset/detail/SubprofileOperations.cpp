#include <VanticRestKit/trelvo/Dataset/detail/SubprofileOperations.h>

namespace VanticRestKit::detail {

namespace {

constexpr const char* profile = "profile";

Result<Subprofile, TrelvoError> asSubprofile(DatasetContainer container) {
    const std::optional<std::string> actual = container.namespace_;
    std::optional<Subprofile> subprofile = Subprofile::make({.datasetContainer = std::move(container)});
    if (!subprofile) return Failure(TrelvoError::datasetNamespaceMismatch(profile, actual));
    return *std::move(subprofile);
}

Result<std::vector<Subprofile>, TrelvoError> asSubprofiles(std::vector<DatasetContainer> containers) {
    std::vector<Subprofile> subprofiles;
    for (DatasetContainer& container : containers) {
        auto subprofile = Subprofile::make({.datasetContainer = std::move(container)});
        if (subprofile) subprofiles.push_back(*std::move(subprofile));
    }
    return subprofiles;
}

/// The same operation, with its value converted by `convert`.
template <class Value, class Convert, class Converted = std::invoke_result_t<Convert, Value>>
DatasetOperation<typename Converted::value_type> converted(DatasetOperation<Value> operation,
                                                           Convert convert) {
    using Answer = Result<DatasetResponse, LoaderError>;
    return {.name = operation.name,
            .route = std::move(operation.route),
            .conclude = [conclude = std::move(operation.conclude), convert](
                            Answer& answer, TokenKeeper* keeper) -> Converted {
                Result<Value, TrelvoError> outcome = conclude(answer, keeper);
                if (!outcome) return Failure(outcome.error());
                return convert(std::move(outcome).value());
            }};
}

}  // namespace

DatasetOperation<std::vector<Subprofile>> getSubprofiles(GetSubprofiles arguments) {
    return converted(getDataset({.namespace_ = profile,
                                 .includePrivateData = arguments.includePrivateData,
                                 .includeFamilyData = arguments.includeFamilyData}),
                     asSubprofiles);
}

DatasetOperation<Subprofile> createSubprofile(Dictionary dataset) {
    return converted(createDataset(profile, std::move(dataset)), asSubprofile);
}

DatasetOperation<Subprofile> updateSubprofile(Dictionary dataset) {
    return converted(updateDataset(profile, std::move(dataset)), asSubprofile);
}

DatasetOperation<void> deleteSubprofile() { return deleteDataset(profile); }

}  // namespace VanticRestKit::detail
