#pragma once

// The operations on the viewing history.

#include <VanticRestKit/trelvo/History/HistoryData.h>
#include <VanticRestKit/trelvo/State/detail/TrelvoState.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit::detail {

using HistoryCompletion = TrelvoCompletion<std::vector<HistoryData>>;

struct RecentVideos {
    std::uint64_t limit;
    bool markedAsDone;
};
struct VideosForShow {
    std::int64_t showId;
    std::optional<bool> markedAsDone;
};
struct ProgressOfVideo {
    std::int64_t showId;
    std::string houseNumber;
};
struct NewProgress {
    ProgressOfVideo of;
    std::int64_t progress;
    bool isDone;
};

void deleteHistory(TrelvoState& state, const TrelvoContext& context, TrelvoCompletion<void> completion);
void viewingHistory(TrelvoState& state, std::uint64_t limit, const TrelvoContext& context,
                    HistoryCompletion completion);
void listRecentVideos(TrelvoState& state, RecentVideos wanted, const TrelvoContext& context,
                      HistoryCompletion completion);
void listVideosForShow(TrelvoState& state, VideosForShow wanted, const TrelvoContext& context,
                       HistoryCompletion completion);
void getVideoProgress(TrelvoState& state, ProgressOfVideo wanted, const TrelvoContext& context,
                      HistoryCompletion completion);
void updateVideoProgress(TrelvoState& state, NewProgress changes, const TrelvoContext& context,
                         HistoryCompletion completion);

}  // namespace VanticRestKit::detail
