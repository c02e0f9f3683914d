#pragma once

// The operations on the viewing history.

#include <VanticRestKit/trelvo/Common/TrelvoNumber.h>
#include <VanticRestKit/trelvo/History/HistoryData.h>
#include <VanticRestKit/trelvo/History/HistoryResponse.h>
#include <VanticRestKit/trelvo/State/detail/UserOperation.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit::detail {

using HistoryDeletion = UserOperation<HistoryResponse, void>;
using HistoryReading = UserOperation<HistoryResponse, std::vector<HistoryData>>;

struct RecentVideos {
    std::uint64_t limit;
    bool markedAsDone;
};
struct VideosForShow {
    TrelvoNumber showId;
    std::optional<bool> markedAsDone;
};
struct ProgressOfVideo {
    TrelvoNumber showId;
    std::string houseNumber;
};
struct NewProgress {
    ProgressOfVideo of;
    TrelvoNumber progress;
    bool isDone;
};

HistoryDeletion deleteHistory();
HistoryReading viewingHistory(std::uint64_t limit);
HistoryReading listRecentVideos(RecentVideos arguments);
HistoryReading listVideosForShow(VideosForShow arguments);
HistoryReading getVideoProgress(ProgressOfVideo arguments);
HistoryReading updateVideoProgress(NewProgress changes);

}  // namespace VanticRestKit::detail
