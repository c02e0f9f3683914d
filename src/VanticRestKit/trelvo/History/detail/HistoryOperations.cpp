#include <VanticRestKit/trelvo/History/detail/HistoryOperations.h>

#include <VanticRestKit/trelvo/History/HistoryRoutes.h>

namespace VanticRestKit::detail {

namespace {

using Answer = Result<HistoryResponse, LoaderError>;
using Records = std::vector<HistoryData>;

/// Returns the records of a response, and ignores its tokens.
Result<Records, TrelvoError> records(Answer& answer, TokenKeeper*) {
    if (!answer) return generalFailure(answer.error());
    if (!answer->data) return Failure(TrelvoError::unableToRetrieveHistoryData());
    return *std::move(answer->data);
}

Result<void, TrelvoError> deletion(Answer& answer, TokenKeeper* keeper) {
    if (keeper == nullptr) return clientHasGone();
    if (!answer && answer.error().is404Error()) return {};
    return concludeWithoutValue(answer, keeper);
}

}  // namespace

HistoryDeletion deleteHistory() {
    return {.name = "deleteHistory",
            .route = [](const std::string& uid,
                        SourceSystem source) { return DeleteHistoryURI{.uid = uid, .source = source}; },
            .conclude = deletion};
}

HistoryReading viewingHistory(std::uint64_t limit) {
    // Not "viewingHistory": the message for a missing token names listRecentVideos here.
    return {.name = "listRecentVideos",
            .route =
                [limit](const std::string& uid, SourceSystem source) {
                    return VideoHistoryURI(
                        {.uid = uid, .source = source, .slug = TrelvoSlug::watchlist, .limit = limit});
                },
            .conclude = records};
}

HistoryReading listRecentVideos(RecentVideos arguments) {
    return {.name = "listRecentVideos",
            .route =
                [arguments](const std::string& uid, SourceSystem source) {
                    return RecentVideoHistoryURI{.markedAsDone = arguments.markedAsDone,
                                                 .uid = uid,
                                                 .source = source,
                                                 .limit = arguments.limit,
                                                 .slug = TrelvoSlug::watchlist};
                },
            .conclude = records};
}

HistoryReading listVideosForShow(VideosForShow arguments) {
    auto error = signedRangeError(arguments.showId, "listVideosForShow", "showId");
    return {.name = "listVideosForShow",
            .route =
                [arguments](const std::string& uid, SourceSystem source) {
                    return VideoHistoryForShowURI{.markedAsDone = arguments.markedAsDone,
                                                  .uid = uid,
                                                  .source = source,
                                                  .slug = TrelvoSlug::watchlist,
                                                  .showId = arguments.showId.value().value_or(0)};
                },
            .conclude = records,
            .argumentError = std::move(error)};
}

HistoryReading getVideoProgress(ProgressOfVideo arguments) {
    auto error = signedRangeError(arguments.showId, "getVideoProgress", "showId");
    return {.name = "getVideoProgress",
            .route =
                [arguments = std::move(arguments)](const std::string& uid, SourceSystem source) {
                    return VideoProgressURI{.uid = uid,
                                            .source = source,
                                            .showId = arguments.showId.value().value_or(0),
                                            .houseNumber = arguments.houseNumber};
                },
            .conclude = records,
            .argumentError = std::move(error)};
}

HistoryReading updateVideoProgress(NewProgress changes) {
    auto error = signedRangeError(changes.of.showId, "updateVideoProgress", "showId");
    if (!error) error = signedRangeError(changes.progress, "updateVideoProgress", "progress");
    return {.name = "updateVideoProgress",
            .route =
                [changes = std::move(changes)](const std::string& uid, SourceSystem source) {
                    return UpdateVideoProgressURI{.uid = uid,
                                                  .source = source,
                                                  .showId = changes.of.showId.value().value_or(0),
                                                  .houseNumber = changes.of.houseNumber,
                                                  .progress = changes.progress.value().value_or(0),
                                                  .isDone = changes.isDone};
                },
            .conclude = records,
            .argumentError = std::move(error)};
}

}  // namespace VanticRestKit::detail
