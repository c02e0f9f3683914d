#pragma once

// The operations on the watchlist.

#include <VanticRestKit/trelvo/Saved/SavedData.h>
#include <VanticRestKit/trelvo/State/detail/TrelvoState.h>

#include <cstdint>
#include <vector>

namespace VanticRestKit::detail {

using SavedCompletion = TrelvoCompletion<std::vector<SavedData>>;

void listWatchlistShowIds(TrelvoState& state, const TrelvoContext& context, SavedCompletion completion);
void addWatchlistShow(TrelvoState& state, std::int64_t showId, const TrelvoContext& context,
                      SavedCompletion completion);
void deleteShow(TrelvoState& state, std::int64_t showId, const TrelvoContext& context,
                TrelvoCompletion<void> completion);
void deleteWatchlist(TrelvoState& state, const TrelvoContext& context, TrelvoCompletion<void> completion);

}  // namespace VanticRestKit::detail
