#include <VanticRestKit/trelvo/detail/TrelvoState.h>
#include <VanticRestKit/trelvo/History/DeleteHistoryURI.h>
#include <VanticRestKit/trelvo/History/HistoryResponse.h>
#include <VanticRestKit/trelvo/History/RecentVideoHistoryURI.h>
#include <VanticRestKit/trelvo/History/UpdateVideoProgressURI.h>
#include <VanticRestKit/trelvo/History/VideoHistoryForShowURI.h>
#include <VanticRestKit/trelvo/History/VideoHistoryURI.h>
#include <VanticRestKit/trelvo/History/VideoProgressURI.h>

namespace VanticRestKit {

namespace {

using Answer = Result<HistoryResponse, LoaderError>;
using Records = std::vector<HistoryData>;

/// The records of an answer. Its tokens are not kept.
Result<Records, TrelvoError> records(Answer& answer) {
    if (!answer) return detail::generalFailure(answer.error());
    if (!answer->data) return Failure(TrelvoError::unableToRetrieveHistoryData());
    return *std::move(answer->data);
}

template <class MakeRoute>
void readHistory(detail::TrelvoState& state, const char* operation, const TrelvoContext& context,
                 Trelvo::HistoryCompletion completion, MakeRoute makeRoute) {
    detail::runOperation<HistoryResponse, Records>(state, operation, context, std::move(completion),
                                                   std::move(makeRoute), records);
}

}  // namespace

void Trelvo::deleteHistory(DeletionArguments arguments, const TrelvoContext& context) {
    detail::runOperation<HistoryResponse, void>(
        *state_, "deleteHistory", context, std::move(arguments.completionHandler).value(),
        [](const std::string& uid, SourceSystem source) {
            return DeleteHistoryURI{.uid = uid, .source = source};
        },
        [weak = state_->weak_from_this()](const Answer& answer) -> Result<void, TrelvoError> {
            if (weak.expired())
                return Failure(TrelvoError::unknown("Trelvo deallocated when request returned"));
            if (!answer && answer.error().is404Error()) return {};
            if (!answer) return detail::generalFailure(answer.error());
            detail::storeAuth(weak, answer->auth);
            return {};
        });
}

void Trelvo::viewingHistory(ViewingHistoryArguments arguments, const TrelvoContext& context) {
    // It names its sister where there is neither token nor error.
    readHistory(*state_, "listRecentVideos", context, std::move(arguments.completionHandler).value(),
                [&](const std::string& uid, SourceSystem source) {
                    return VideoHistoryURI({.uid = uid,
                                            .source = source,
                                            .slug = TrelvoSlug::watchlist,
                                            .limit = arguments.limit.value()});
                });
}

void Trelvo::listRecentVideos(RecentVideosArguments arguments, const TrelvoContext& context) {
    readHistory(*state_, "listRecentVideos", context, std::move(arguments.completionHandler).value(),
                [&](const std::string& uid, SourceSystem source) {
                    return RecentVideoHistoryURI{.markedAsDone = arguments.markedAsDone.value(),
                                                 .uid = uid,
                                                 .source = source,
                                                 .limit = arguments.limit.value(),
                                                 .slug = TrelvoSlug::watchlist};
                });
}

void Trelvo::listVideosForShow(VideosForShowArguments arguments, const TrelvoContext& context) {
    readHistory(*state_, "listVideosForShow", context, std::move(arguments.completionHandler).value(),
                [&](const std::string& uid, SourceSystem source) {
                    return VideoHistoryForShowURI{.markedAsDone = arguments.markedAsDone.value(),
                                                  .uid = uid,
                                                  .source = source,
                                                  .slug = TrelvoSlug::watchlist,
                                                  .showId = arguments.showId.value()};
                });
}

void Trelvo::getVideoProgress(VideoProgressArguments arguments, const TrelvoContext& context) {
    readHistory(*state_, "getVideoProgress", context, std::move(arguments.completionHandler).value(),
                [&](const std::string& uid, SourceSystem source) {
                    return VideoProgressURI{.uid = uid,
                                            .source = source,
                                            .showId = arguments.showId.value(),
                                            .houseNumber = std::move(arguments.houseNumber).value()};
                });
}

void Trelvo::updateVideoProgress(UpdateVideoProgressArguments arguments, const TrelvoContext& context) {
    readHistory(*state_, "updateVideoProgress", context, std::move(arguments.completionHandler).value(),
                [&](const std::string& uid, SourceSystem source) {
                    return UpdateVideoProgressURI{.uid = uid,
                                                  .source = source,
                                                  .showId = arguments.showId.value(),
                                                  .houseNumber = std::move(arguments.houseNumber).value(),
                                                  .progress = arguments.progress.value(),
                                                  .isDone = arguments.isDone.value()};
                });
}

}  // namespace VanticRestKit
