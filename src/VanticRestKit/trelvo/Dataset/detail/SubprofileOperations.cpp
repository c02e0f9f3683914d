#include <VanticRestKit/trelvo/Dataset/detail/SubprofileOperations.h>

#include <VanticRestKit/trelvo/Dataset/detail/DatasetOperations.h>

namespace VanticRestKit::detail {

namespace {

constexpr const char* profile = "profile";

/// Turns a dataset that a profile was made from into that profile.
TrelvoCompletion<DatasetContainer> asSubprofile(TrelvoCompletion<Subprofile> completion) {
    return [completion = std::move(completion)](Result<DatasetContainer, TrelvoError> result) mutable {
        if (!result) {
            completion(Failure(result.error()));
            return;
        }
        const std::optional<std::string> actual = result->namespace_;
        std::optional<Subprofile> subprofile =
            Subprofile::make({.datasetContainer = std::move(result).value()});
        if (subprofile) {
            completion(*std::move(subprofile));
        } else {
            completion(Failure(TrelvoError::datasetNamespaceMismatch(profile, actual)));
        }
    };
}

}  // namespace

void getSubprofiles(TrelvoState& state, GetSubprofiles wanted, const TrelvoContext& context,
                    TrelvoCompletion<std::vector<Subprofile>> completion) {
    const GetDataset datasets{.namespace_ = profile,
                              .includePrivateData = wanted.includePrivateData,
                              .includeFamilyData = wanted.includeFamilyData};
    getDataset(state, datasets, context,
               [completion = std::move(completion)](
                   Result<std::vector<DatasetContainer>, TrelvoError> result) mutable {
                   if (!result) {
                       completion(Failure(result.error()));
                       return;
                   }
                   std::vector<Subprofile> subprofiles;
                   for (DatasetContainer& container : *result) {
                       auto subprofile = Subprofile::make({.datasetContainer = std::move(container)});
                       if (subprofile) subprofiles.push_back(*std::move(subprofile));
                   }
                   completion(std::move(subprofiles));
               });
}

void createSubprofile(TrelvoState& state, Dictionary dataset, const TrelvoContext& context,
                      TrelvoCompletion<Subprofile> completion) {
    createDataset(state, profile, std::move(dataset), context, asSubprofile(std::move(completion)));
}

void updateSubprofile(TrelvoState& state, Dictionary dataset, const TrelvoContext& context,
                      TrelvoCompletion<Subprofile> completion) {
    updateDataset(state, profile, std::move(dataset), context, asSubprofile(std::move(completion)));
}

void deleteSubprofile(TrelvoState& state, const TrelvoContext& context, TrelvoCompletion<void> completion) {
    deleteDataset(state, profile, context, std::move(completion));
}

}  // namespace VanticRestKit::detail
