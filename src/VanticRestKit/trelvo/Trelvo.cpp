#include <VanticRestKit/trelvo/Trelvo.h>

#include <VanticRestKit/trelvo/Dataset/detail/SubprofileOperations.h>
#include <VanticRestKit/trelvo/History/detail/HistoryOperations.h>
#include <VanticRestKit/trelvo/Saved/detail/SavedOperations.h>

#include <chrono>

namespace VanticRestKit {

namespace {

double secondsSince1970() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration<double>(now).count();
}

/// The number; if it is beyond the signed range, completes with `unknown` and returns an empty value.
template <class T>
std::optional<std::int64_t> inSignedRange(TrelvoNumber number, const char* operation, const char* argument,
                                          Required<Trelvo::Completion<T>>& completion) {
    const std::optional<std::int64_t> value = number.value();
    if (!value) {
        completion.value()(
            Failure(TrelvoError::unknown("In Trelvo." + std::string(operation) + "(), " + argument +
                                         " is beyond the range of a signed number")));
    }
    return value;
}

}  // namespace

Trelvo::Trelvo(std::shared_ptr<detail::TrelvoState> state) : state_(std::move(state)) {}

Trelvo& Trelvo::shared() {
    static Trelvo& trelvo = *new Trelvo(std::make_shared<detail::TrelvoState>(secondsSince1970));
    return trelvo;
}

std::optional<Auth> Trelvo::auth() const { return state_->auth.load(); }

std::optional<TrelvoError> Trelvo::authError() const { return state_->authError.load(); }

void Trelvo::clearAuth() {
    state_->auth.store(std::nullopt);
    state_->authError.store(std::nullopt);
}

void Trelvo::getSubprofiles(GetSubprofilesArguments arguments, const TrelvoContext& context) {
    detail::getSubprofiles(*state_,
                           {.includePrivateData = arguments.includePrivateData.value(),
                            .includeFamilyData = arguments.includeFamilyData.value()},
                           context, std::move(arguments.completionHandler).value());
}

void Trelvo::createSubprofile(DatasetArguments arguments, const TrelvoContext& context) {
    detail::createSubprofile(*state_, std::move(arguments.dataset).value(), context,
                             std::move(arguments.completionHandler).value());
}

void Trelvo::updateSubprofile(DatasetArguments arguments, const TrelvoContext& context) {
    detail::updateSubprofile(*state_, std::move(arguments.dataset).value(), context,
                             std::move(arguments.completionHandler).value());
}

void Trelvo::deleteSubprofile(DeletionArguments arguments, const TrelvoContext& context) {
    const auto ignored = [](const Result<void, TrelvoError>&) {};
    detail::deleteHistory(*state_, context, ignored);
    detail::deleteWatchlist(*state_, context, ignored);
    detail::deleteSubprofile(*state_, context, std::move(arguments.completionHandler).value());
}

void Trelvo::deleteHistory(DeletionArguments arguments, const TrelvoContext& context) {
    detail::deleteHistory(*state_, context, std::move(arguments.completionHandler).value());
}

void Trelvo::viewingHistory(ViewingHistoryArguments arguments, const TrelvoContext& context) {
    detail::viewingHistory(*state_, arguments.limit.value(), context,
                           std::move(arguments.completionHandler).value());
}

void Trelvo::listRecentVideos(RecentVideosArguments arguments, const TrelvoContext& context) {
    detail::listRecentVideos(
        *state_, {.limit = arguments.limit.value(), .markedAsDone = arguments.markedAsDone.value()}, context,
        std::move(arguments.completionHandler).value());
}

void Trelvo::listVideosForShow(VideosForShowArguments arguments, const TrelvoContext& context) {
    const auto showId =
        inSignedRange(arguments.showId, "listVideosForShow", "showId", arguments.completionHandler);
    if (!showId) return;
    detail::listVideosForShow(*state_, {.showId = *showId, .markedAsDone = arguments.markedAsDone.value()},
                              context, std::move(arguments.completionHandler).value());
}

void Trelvo::getVideoProgress(VideoProgressArguments arguments, const TrelvoContext& context) {
    const auto showId =
        inSignedRange(arguments.showId, "getVideoProgress", "showId", arguments.completionHandler);
    if (!showId) return;
    detail::getVideoProgress(*state_,
                             {.showId = *showId, .houseNumber = std::move(arguments.houseNumber).value()},
                             context, std::move(arguments.completionHandler).value());
}

void Trelvo::updateVideoProgress(UpdateVideoProgressArguments arguments, const TrelvoContext& context) {
    const auto showId =
        inSignedRange(arguments.showId, "updateVideoProgress", "showId", arguments.completionHandler);
    if (!showId) return;
    const auto progress =
        inSignedRange(arguments.progress, "updateVideoProgress", "progress", arguments.completionHandler);
    if (!progress) return;
    detail::updateVideoProgress(
        *state_,
        {.of = {.showId = *showId, .houseNumber = std::move(arguments.houseNumber).value()},
         .progress = *progress,
         .isDone = arguments.isDone.value()},
        context, std::move(arguments.completionHandler).value());
}

void Trelvo::listWatchlistShowIds(WatchlistArguments arguments, const TrelvoContext& context) {
    detail::listWatchlistShowIds(*state_, context, std::move(arguments.completionHandler).value());
}

void Trelvo::addWatchlistShow(AddShowArguments arguments, const TrelvoContext& context) {
    const auto showId =
        inSignedRange(arguments.showId, "addWatchlistShow", "showId", arguments.completionHandler);
    if (!showId) return;
    detail::addWatchlistShow(*state_, *showId, context, std::move(arguments.completionHandler).value());
}

void Trelvo::deleteShow(DeleteShowArguments arguments, const TrelvoContext& context) {
    const auto showId = inSignedRange(arguments.showId, "deleteShow", "showId", arguments.completionHandler);
    if (!showId) return;
    detail::deleteShow(*state_, *showId, context, std::move(arguments.completionHandler).value());
}

}  // namespace VanticRestKit
