#pragma once

// The operations on datasets, which hosts reach only as profiles.

#include <VanticRestKit/trelvo/Dataset/DatasetContainer.h>
#include <VanticRestKit/trelvo/State/detail/TrelvoState.h>

#include <string>
#include <vector>

namespace VanticRestKit::detail {

struct GetDataset {
    std::string namespace_;
    bool includePrivateData;
    bool includeFamilyData;
};

void getDataset(TrelvoState& state, GetDataset wanted, const TrelvoContext& context,
                TrelvoCompletion<std::vector<DatasetContainer>> completion);
void createDataset(TrelvoState& state, std::string namespace_, Dictionary dataset,
                   const TrelvoContext& context, TrelvoCompletion<DatasetContainer> completion);
void updateDataset(TrelvoState& state, std::string namespace_, Dictionary dataset,
                   const TrelvoContext& context, TrelvoCompletion<DatasetContainer> completion);
void deleteDataset(TrelvoState& state, std::string namespace_, const TrelvoContext& context,
                   TrelvoCompletion<void> completion);

}  // namespace VanticRestKit::detail
