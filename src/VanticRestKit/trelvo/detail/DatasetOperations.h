#pragma once

// The operations on datasets, which hosts reach as profiles only.

#include <VanticRestKit/trelvo/Dataset/DatasetContainer.h>
#include <VanticRestKit/trelvo/Trelvo.h>

#include <string>
#include <vector>

namespace VanticRestKit::detail {

struct GetDataset {
    std::string namespace_;
    bool includePrivateData;
    bool includeFamilyData;
};

void getDataset(TrelvoState& state, GetDataset wanted, const TrelvoContext& context,
                Trelvo::Completion<std::vector<DatasetContainer>> completion);
void createDataset(TrelvoState& state, std::string namespace_, Dictionary dataset,
                   const TrelvoContext& context, Trelvo::Completion<DatasetContainer> completion);
void updateDataset(TrelvoState& state, std::string namespace_, Dictionary dataset,
                   const TrelvoContext& context, Trelvo::Completion<DatasetContainer> completion);
void deleteDataset(TrelvoState& state, std::string namespace_, const TrelvoContext& context,
                   Trelvo::Completion<void> completion);
void deleteWatchlist(TrelvoState& state, const TrelvoContext& context, Trelvo::Completion<void> completion);

}  // namespace VanticRestKit::detail
