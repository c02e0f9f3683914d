#pragma once

// The operations on the watchlist.

#include <VanticRestKit/trelvo/Common/TrelvoNumber.h>
#include <VanticRestKit/trelvo/Saved/SavedData.h>
#include <VanticRestKit/trelvo/Saved/SavedResponse.h>
#include <VanticRestKit/trelvo/State/detail/UserOperation.h>

#include <vector>

namespace VanticRestKit::detail {

template <class Value>
using SavedOperation = UserOperation<SavedResponse, Value>;

SavedOperation<std::vector<SavedData>> listWatchlistShowIds();
SavedOperation<std::vector<SavedData>> addWatchlistShow(TrelvoNumber showId);
SavedOperation<void> deleteShow(TrelvoNumber showId);
SavedOperation<void> deleteWatchlist();

}  // namespace VanticRestKit::detail
