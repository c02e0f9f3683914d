#pragma once

// The operations on profiles, which are the datasets of one namespace.

#include <VanticRestKit/trelvo/Dataset/detail/DatasetOperations.h>
#include <VanticRestKit/trelvo/Dataset/Subprofile.h>

#include <vector>

namespace VanticRestKit::detail {

struct GetSubprofiles {
    bool includePrivateData;
    bool includeFamilyData;
};

DatasetOperation<std::vector<Subprofile>> getSubprofiles(GetSubprofiles arguments);
DatasetOperation<Subprofile> createSubprofile(Dictionary dataset);
DatasetOperation<Subprofile> updateSubprofile(Dictionary dataset);
/// Deletes only the dataset, not other data of the user.
DatasetOperation<void> deleteSubprofile();

}  // namespace VanticRestKit::detail
