#include <VanticRestKit/trelvo/UserClient.h>

#include <VanticRestKit/trelvo/Dataset/detail/SubprofileOperations.h>
#include <VanticRestKit/trelvo/detail/UserCall.h>
#include <VanticRestKit/trelvo/detail/UserSession.h>
#include <VanticRestKit/trelvo/History/detail/HistoryOperations.h>
#include <VanticRestKit/trelvo/Saved/detail/SavedOperations.h>
#include <VanticRestKit/trelvo/State/detail/TokenRules.h>

#include <utility>

namespace VanticRestKit {

UserClient::UserClient(std::shared_ptr<detail::UserSession> session) : session_(std::move(session)) {}

std::shared_ptr<UserClient> UserClient::make(std::shared_ptr<const TrelvoContext> context) {
    return make(std::move(context), detail::secondsSince1970);
}

std::shared_ptr<UserClient> UserClient::make(std::shared_ptr<const TrelvoContext> context,
                                             std::function<double()> now) {
    return std::shared_ptr<UserClient>(
        new UserClient(std::make_shared<detail::UserSession>(std::move(context), std::move(now))));
}

template <class A, class V>
UserClient::Call<V> UserClient::call(detail::UserOperation<A, V> operation,
                                     std::vector<Call<void>> companions) const {
    return Call<V>(std::make_shared<const detail::UserOperationSource<A, V>>(session_, std::move(operation),
                                                                             std::move(companions)));
}

std::optional<UserAuth> UserClient::auth() const { return session_->auth(); }

void UserClient::setAuth(std::optional<UserAuth> auth) { session_->setAuth(std::move(auth)); }

void UserClient::signOut() { session_->signOut(); }

AnyPublisher<SignInState, Never> UserClient::signInState() const { return session_->signInState(); }

AnyPublisher<std::optional<UserAuth>, Never> UserClient::authChanges() const {
    return session_->authChanges();
}

UserClient::Call<std::vector<Subprofile>> UserClient::getSubprofiles(
    GetSubprofilesArguments arguments) const {
    return call(detail::getSubprofiles({.includePrivateData = arguments.includePrivateData.value(),
                                        .includeFamilyData = arguments.includeFamilyData.value()}));
}

UserClient::Call<Subprofile> UserClient::createSubprofile(DatasetArguments arguments) const {
    return call(detail::createSubprofile(std::move(arguments.dataset).value()));
}

UserClient::Call<Subprofile> UserClient::updateSubprofile(DatasetArguments arguments) const {
    return call(detail::updateSubprofile(std::move(arguments.dataset).value()));
}

UserClient::Call<void> UserClient::deleteSubprofile() const {
    return call(detail::deleteSubprofile(), {deleteHistory(), call(detail::deleteWatchlist())});
}

UserClient::Call<void> UserClient::deleteHistory() const { return call(detail::deleteHistory()); }

UserClient::Call<UserClient::History> UserClient::viewingHistory(ViewingHistoryArguments arguments) const {
    return call(detail::viewingHistory(arguments.limit.value()));
}

UserClient::Call<UserClient::History> UserClient::listRecentVideos(RecentVideosArguments arguments) const {
    return call(detail::listRecentVideos(
        {.limit = arguments.limit.value(), .markedAsDone = arguments.markedAsDone.value()}));
}

UserClient::Call<UserClient::History> UserClient::listVideosForShow(VideosForShowArguments arguments) const {
    return call(detail::listVideosForShow(
        {.showId = arguments.showId.value(), .markedAsDone = arguments.markedAsDone.value()}));
}

UserClient::Call<UserClient::History> UserClient::getVideoProgress(VideoProgressArguments arguments) const {
    return call(detail::getVideoProgress(
        {.showId = arguments.showId.value(), .houseNumber = std::move(arguments.houseNumber).value()}));
}

UserClient::Call<UserClient::History> UserClient::updateVideoProgress(
    UpdateVideoProgressArguments arguments) const {
    return call(detail::updateVideoProgress(
        {.of = {.showId = arguments.showId.value(), .houseNumber = std::move(arguments.houseNumber).value()},
         .progress = arguments.progress.value(),
         .isDone = arguments.isDone.value()}));
}

UserClient::Call<std::vector<SavedData>> UserClient::listWatchlistShowIds() const {
    return call(detail::listWatchlistShowIds());
}

UserClient::Call<std::vector<SavedData>> UserClient::addWatchlistShow(ShowArguments arguments) const {
    return call(detail::addWatchlistShow(arguments.showId.value()));
}

UserClient::Call<void> UserClient::deleteShow(ShowArguments arguments) const {
    return call(detail::deleteShow(arguments.showId.value()));
}

}  // namespace VanticRestKit
