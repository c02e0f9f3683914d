// Profiles are the datasets of one namespace.

#include <VanticRestKit/trelvo/detail/DatasetOperations.h>
#include <VanticRestKit/trelvo/Trelvo.h>

namespace VanticRestKit {

namespace {

constexpr const char* profile = "profile";

/// Turns a dataset that a profile was made from into that profile.
Trelvo::Completion<DatasetContainer> asSubprofile(Trelvo::Completion<Subprofile> completion) {
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

void Trelvo::getSubprofiles(GetSubprofilesArguments arguments, const TrelvoContext& context) {
    const detail::GetDataset wanted{.namespace_ = profile,
                                    .includePrivateData = arguments.includePrivateData.value(),
                                    .includeFamilyData = arguments.includeFamilyData.value()};
    detail::getDataset(*state_, wanted, context,
                       [completion = std::move(arguments.completionHandler).value()](
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

void Trelvo::createSubprofile(DatasetArguments arguments, const TrelvoContext& context) {
    detail::createDataset(*state_, profile, std::move(arguments.dataset).value(), context,
                          asSubprofile(std::move(arguments.completionHandler).value()));
}

void Trelvo::updateSubprofile(DatasetArguments arguments, const TrelvoContext& context) {
    detail::updateDataset(*state_, profile, std::move(arguments.dataset).value(), context,
                          asSubprofile(std::move(arguments.completionHandler).value()));
}

void Trelvo::deleteSubprofile(DeletionArguments arguments, const TrelvoContext& context) {
    const auto ignored = [](const Result<void, TrelvoError>&) {};
    deleteHistory({.completionHandler = Completion<void>(ignored)}, context);
    detail::deleteWatchlist(*state_, context, ignored);
    detail::deleteDataset(*state_, profile, context, std::move(arguments.completionHandler).value());
}

}  // namespace VanticRestKit
