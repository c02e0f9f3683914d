#include <VanticRestKit/trelvo/Trelvo.h>

#include <VanticRestKit/trelvo/Dataset/detail/SubprofileOperations.h>
#include <VanticRestKit/trelvo/History/detail/HistoryOperations.h>
#include <VanticRestKit/trelvo/Saved/detail/SavedOperations.h>
#include <VanticRestKit/trelvo/State/detail/StoredAnswers.h>
#include <VanticRestKit/trelvo/State/detail/TokenRules.h>
#include <VanticRestKit/trelvo/State/detail/TrelvoState.h>

#include <utility>

namespace VanticRestKit {

Trelvo::Trelvo(std::shared_ptr<detail::TrelvoState> state) : state_(std::move(state)) {}

Trelvo& Trelvo::shared() {
    static Trelvo& trelvo = *new Trelvo(std::make_shared<detail::TrelvoState>(detail::secondsSince1970));
    return trelvo;
}

std::optional<Auth> Trelvo::auth() const { return state_->auth.load(); }

std::optional<TrelvoError> Trelvo::authError() const { return state_->authError.load(); }

void Trelvo::clearAuth() {
    const std::optional<Auth> previous = state_->auth.load();
    state_->auth.store(std::nullopt);
    detail::removeStoredAnswers(previous, std::nullopt);
    state_->authError.store(std::nullopt);
}

void Trelvo::getSubprofiles(GetSubprofilesArguments arguments, const TrelvoContext& context) {
    detail::runOperation(*state_,
                         detail::getSubprofiles({.includePrivateData = arguments.includePrivateData.value(),
                                                 .includeFamilyData = arguments.includeFamilyData.value()}),
                         context, std::move(arguments.completionHandler).value());
}

void Trelvo::createSubprofile(DatasetArguments arguments, const TrelvoContext& context) {
    detail::runOperation(*state_, detail::createSubprofile(std::move(arguments.dataset).value()), context,
                         std::move(arguments.completionHandler).value());
}

void Trelvo::updateSubprofile(DatasetArguments arguments, const TrelvoContext& context) {
    detail::runOperation(*state_, detail::updateSubprofile(std::move(arguments.dataset).value()), context,
                         std::move(arguments.completionHandler).value());
}

void Trelvo::deleteSubprofile(DeletionArguments arguments, const TrelvoContext& context) {
    const auto ignored = [](const Result<void, TrelvoError>&) {};
    detail::runOperation<HistoryResponse, void>(*state_, detail::deleteHistory(), context, ignored);
    detail::runOperation<SavedResponse, void>(*state_, detail::deleteWatchlist(), context, ignored);
    detail::runOperation(*state_, detail::deleteSubprofile(), context,
                         std::move(arguments.completionHandler).value());
}

void Trelvo::deleteHistory(DeletionArguments arguments, const TrelvoContext& context) {
    detail::runOperation(*state_, detail::deleteHistory(), context,
                         std::move(arguments.completionHandler).value());
}

void Trelvo::viewingHistory(ViewingHistoryArguments arguments, const TrelvoContext& context) {
    detail::runOperation(*state_, detail::viewingHistory(arguments.limit.value()), context,
                         std::move(arguments.completionHandler).value());
}

void Trelvo::listRecentVideos(RecentVideosArguments arguments, const TrelvoContext& context) {
    detail::runOperation(*state_,
                         detail::listRecentVideos({.limit = arguments.limit.value(),
                                                   .markedAsDone = arguments.markedAsDone.value()}),
                         context, std::move(arguments.completionHandler).value());
}

void Trelvo::listVideosForShow(VideosForShowArguments arguments, const TrelvoContext& context) {
    detail::runOperation(*state_,
                         detail::listVideosForShow({.showId = arguments.showId.value(),
                                                    .markedAsDone = arguments.markedAsDone.value()}),
                         context, std::move(arguments.completionHandler).value());
}

void Trelvo::getVideoProgress(VideoProgressArguments arguments, const TrelvoContext& context) {
    detail::runOperation(*state_,
                         detail::getVideoProgress({.showId = arguments.showId.value(),
                                                   .houseNumber = std::move(arguments.houseNumber).value()}),
                         context, std::move(arguments.completionHandler).value());
}

void Trelvo::updateVideoProgress(UpdateVideoProgressArguments arguments, const TrelvoContext& context) {
    detail::runOperation(
        *state_,
        detail::updateVideoProgress({.of = {.showId = arguments.showId.value(),
                                            .houseNumber = std::move(arguments.houseNumber).value()},
                                     .progress = arguments.progress.value(),
                                     .isDone = arguments.isDone.value()}),
        context, std::move(arguments.completionHandler).value());
}

void Trelvo::listWatchlistShowIds(WatchlistArguments arguments, const TrelvoContext& context) {
    detail::runOperation(*state_, detail::listWatchlistShowIds(), context,
                         std::move(arguments.completionHandler).value());
}

void Trelvo::addWatchlistShow(AddShowArguments arguments, const TrelvoContext& context) {
    detail::runOperation(*state_, detail::addWatchlistShow(arguments.showId.value()), context,
                         std::move(arguments.completionHandler).value());
}

void Trelvo::deleteShow(DeleteShowArguments arguments, const TrelvoContext& context) {
    detail::runOperation(*state_, detail::deleteShow(arguments.showId.value()), context,
                         std::move(arguments.completionHandler).value());
}

}  // namespace VanticRestKit
