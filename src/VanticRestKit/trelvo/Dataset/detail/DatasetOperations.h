#pragma once

// The operations on datasets; hosts use them only through the operations on profiles.

#include <VanticRestKit/trelvo/Dataset/DatasetContainer.h>
#include <VanticRestKit/trelvo/Dataset/DatasetResponse.h>
#include <VanticRestKit/trelvo/State/detail/UserOperation.h>

#include <string>
#include <vector>

namespace VanticRestKit::detail {

template <class Value>
using DatasetOperation = UserOperation<DatasetResponse, Value>;

struct GetDataset {
    std::string namespace_;
    bool includePrivateData;
    bool includeFamilyData;
};

DatasetOperation<std::vector<DatasetContainer>> getDataset(GetDataset arguments);
DatasetOperation<DatasetContainer> createDataset(std::string namespace_, Dictionary dataset);
DatasetOperation<DatasetContainer> updateDataset(std::string namespace_, Dictionary dataset);
DatasetOperation<void> deleteDataset(std::string namespace_);

}  // namespace VanticRestKit::detail
