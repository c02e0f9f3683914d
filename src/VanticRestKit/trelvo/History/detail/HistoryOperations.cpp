#include <VanticRestKit/trelvo/History/detail/HistoryOperations.h>

#include <VanticRestKit/trelvo/History/HistoryResponse.h>
#include <VanticRestKit/trelvo/History/HistoryRoutes.h>

namespace VanticRestKit::detail {

namespace {

using Answer = Result<HistoryResponse, LoaderError>;
using Records = std::vector<HistoryData>;

/// The records of an answer. Its tokens are not kept.
Result<Records, TrelvoError> records(Answer& answer) {
    if (!answer) return generalFailure(answer.error());
    if (!answer->data) return Failure(TrelvoError::unableToRetrieveHistoryData());
    return *std::move(answer->data);
}

template <class MakeRoute>
void readHistory(TrelvoState& state, const char* operation, const TrelvoContext& context,
                 HistoryCompletion completion, MakeRoute makeRoute) {
    runOperation<HistoryResponse, Records>(state, operation, context, std::move(completion),
                                           std::move(makeRoute), records);
}

}  // namespace

void deleteHistory(TrelvoState& state, const TrelvoContext& context, TrelvoCompletion<void> completion) {
    runOperation<HistoryResponse, void>(
        state, "deleteHistory", context, std::move(completion),
        [](const std::string& uid, SourceSystem source) {
            return DeleteHistoryURI{.uid = uid, .source = source};
        },
        [weak = state.weak_from_this()](const Answer& answer) -> Result<void, TrelvoError> {
            if (weak.expired())
                return Failure(TrelvoError::unknown("Trelvo deallocated when request returned"));
            if (!answer && answer.error().is404Error()) return {};
            if (!answer) return generalFailure(answer.error());
            storeAuth(weak, answer->auth);
            return {};
        });
}

void viewingHistory(TrelvoState& state, std::uint64_t limit, const TrelvoContext& context,
                    HistoryCompletion completion) {
    // The error for neither token nor error names listRecentVideos, not this operation.
    readHistory(state, "listRecentVideos", context, std::move(completion),
                [&](const std::string& uid, SourceSystem source) {
                    return VideoHistoryURI(
                        {.uid = uid, .source = source, .slug = TrelvoSlug::watchlist, .limit = limit});
                });
}

void listRecentVideos(TrelvoState& state, RecentVideos wanted, const TrelvoContext& context,
                      HistoryCompletion completion) {
    readHistory(state, "listRecentVideos", context, std::move(completion),
                [&](const std::string& uid, SourceSystem source) {
                    return RecentVideoHistoryURI{.markedAsDone = wanted.markedAsDone,
                                                 .uid = uid,
                                                 .source = source,
                                                 .limit = wanted.limit,
                                                 .slug = TrelvoSlug::watchlist};
                });
}

void listVideosForShow(TrelvoState& state, VideosForShow wanted, const TrelvoContext& context,
                       HistoryCompletion completion) {
    readHistory(state, "listVideosForShow", context, std::move(completion),
                [&](const std::string& uid, SourceSystem source) {
                    return VideoHistoryForShowURI{.markedAsDone = wanted.markedAsDone,
                                                  .uid = uid,
                                                  .source = source,
                                                  .slug = TrelvoSlug::watchlist,
                                                  .showId = wanted.showId};
                });
}

void getVideoProgress(TrelvoState& state, ProgressOfVideo wanted, const TrelvoContext& context,
                      HistoryCompletion completion) {
    readHistory(state, "getVideoProgress", context, std::move(completion),
                [&](const std::string& uid, SourceSystem source) {
                    return VideoProgressURI{.uid = uid,
                                            .source = source,
                                            .showId = wanted.showId,
                                            .houseNumber = std::move(wanted.houseNumber)};
                });
}

void updateVideoProgress(TrelvoState& state, NewProgress changes, const TrelvoContext& context,
                         HistoryCompletion completion) {
    readHistory(state, "updateVideoProgress", context, std::move(completion),
                [&](const std::string& uid, SourceSystem source) {
                    return UpdateVideoProgressURI{.uid = uid,
                                                  .source = source,
                                                  .showId = changes.of.showId,
                                                  .houseNumber = std::move(changes.of.houseNumber),
                                                  .progress = changes.progress,
                                                  .isDone = changes.isDone};
                });
}

}  // namespace VanticRestKit::detail
