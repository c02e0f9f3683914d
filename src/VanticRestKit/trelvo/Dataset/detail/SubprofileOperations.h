#pragma once

// The operations on profiles, which are the datasets of one namespace.

#include <VanticRestKit/trelvo/Dataset/Subprofile.h>
#include <VanticRestKit/trelvo/State/detail/TrelvoState.h>

#include <vector>

namespace VanticRestKit::detail {

struct GetSubprofiles {
    bool includePrivateData;
    bool includeFamilyData;
};

void getSubprofiles(TrelvoState& state, GetSubprofiles wanted, const TrelvoContext& context,
                    TrelvoCompletion<std::vector<Subprofile>> completion);
void createSubprofile(TrelvoState& state, Dictionary dataset, const TrelvoContext& context,
                      TrelvoCompletion<Subprofile> completion);
void updateSubprofile(TrelvoState& state, Dictionary dataset, const TrelvoContext& context,
                      TrelvoCompletion<Subprofile> completion);
/// Deletes the dataset alone, not what else the service keeps of the user.
void deleteSubprofile(TrelvoState& state, const TrelvoContext& context, TrelvoCompletion<void> completion);

}  // namespace VanticRestKit::detail
