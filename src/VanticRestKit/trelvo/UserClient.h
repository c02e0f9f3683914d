#pragma once

/// \file
/// `UserClient`: the client of the user data service that never blocks.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/async/Operation.h>
#include <VanticRestKit/platform/error/AnyValue.h>
#include <VanticRestKit/platform/publisher/AnyPublisher.h>
#include <VanticRestKit/trelvo/Common/TrelvoContext.h>
#include <VanticRestKit/trelvo/Common/TrelvoError.h>
#include <VanticRestKit/trelvo/Common/TrelvoNumber.h>
#include <VanticRestKit/trelvo/Dataset/Subprofile.h>
#include <VanticRestKit/trelvo/History/HistoryData.h>
#include <VanticRestKit/trelvo/Saved/SavedData.h>
#include <VanticRestKit/trelvo/UserAuth.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

namespace detail {
class UserSession;
template <class A, class V>
struct UserOperation;
}  // namespace detail

/// The client of the user data service for new hosts: profiles, history, progress and watchlist of the signed-in user.
///
/// Nothing blocks but `wait()` and `get()`, and all calls may be made on any thread, from completions too. Each
/// operation can be started any number of times, in any form: `start` with a completion, `co_await value()`, `future`,
/// `wait` or `publisher`.
///
/// ```cpp
/// auto client = UserClient::make(context);
/// Cancellable load = client->getVideoProgress({.showId = 1, .houseNumber = "x"})
///                        .start({.on = DispatchQueue::main(), .deadline = 5s}, [](auto records) { ... });
/// ```
///
/// **Outcomes** arrive once for each start, never inside the call, on the queue of the options; if they name none, on
/// one serial queue of the client. `future().get()` and `wait()` fail at once on that queue and on the one where the
/// service of the context delivers. A cancelled start ends with `general`, holding a `LoaderError` with the
/// transport's `URLErrorCode::cancelled`; one that misses its deadline, which covers the wait for tokens, with
/// `URLErrorCode::timedOut`. If the context builds no request, or a number is beyond the signed range, the outcome is
/// `unknown`.
///
/// **The context** is read when an operation is started, on the thread of the start: user, source and requests; and by
/// `get()` and `wait()`, on theirs. Requests are built before the token is known: their `Authorization` has a marker in
/// its place, which the client replaces in the finished headers. `service` and `logError` are called on queues of the
/// client and must allow any thread.
///
/// **Tokens** are held in memory alone. Operations that find none, or one that ends within five seconds, wait for one
/// request for new ones, however many they are; it is cancelled when none of them waits any more. An operation whose
/// token was believed good and is answered 401 is sent once more, with newer tokens. A failed request for tokens lets
/// operations go on with the tokens held; if none are held they end with `noAuthToken` or `accountReconsentRequired`.
///
/// **The user** is read at each start. One who differs from the user of the tokens held ends what is under way for that
/// user, as cancelled, and drops the tokens before anything is sent; so does a start without a user, with `noUid`.
///
/// Operations that were made or started go on when the client is dropped. No destructor waits.
class VRK_EXPORT UserClient {
public:
    /// What each member below gives. Nothing happens before it is started.
    template <class T>
    using Call = Operation<Result<T, TrelvoError>>;

    /// Keeps `context`, which must not be null.
    static std::shared_ptr<UserClient> make(std::shared_ptr<const TrelvoContext> context);

    UserClient(const UserClient&) = delete;
    UserClient& operator=(const UserClient&) = delete;

    /// The tokens held, with their user.
    std::optional<UserAuth> auth() const;
    /// Replaces the tokens held, for what is started from now on and for what waits. Empty drops them; what is under way
    /// goes on. Tokens of another user end what is under way, as a change of the user does.
    void setAuth(std::optional<UserAuth> auth);
    /// Drops the tokens. All that is under way ends as cancelled.
    void signOut();

    /// The state of now, then each change, on the queue of the client. A subscription does not keep the client; it ends
    /// without a completion when the client and all its operations have gone.
    AnyPublisher<SignInState, Never> signInState() const;
    /// The same for the tokens held, for a host that saves them.
    AnyPublisher<std::optional<UserAuth>, Never> authChanges() const;

    /// The arguments of `getSubprofiles`.
    struct GetSubprofilesArguments {
        /// Whether private data is asked for too.
        Required<bool> includePrivateData;
        /// Whether data of the family is asked for too.
        Required<bool> includeFamilyData;
    };
    /// The profiles of the user. `datasetDoesNotExist` if the service answers 404.
    Call<std::vector<Subprofile>> getSubprofiles(GetSubprofilesArguments arguments) const;

    /// The arguments of `createSubprofile` and `updateSubprofile`.
    struct DatasetArguments {
        /// The keys of the profile with their values. Nested objects and lists are not sent.
        Required<Dictionary> dataset;
    };
    /// Stores `dataset` as a new profile and gives the profile as the service holds it. `datasetNamespaceMismatch` if
    /// the answer is another dataset, `unknown` if it has none.
    Call<Subprofile> createSubprofile(DatasetArguments arguments) const;
    /// Replaces values of the user's profile by `dataset` and gives the profile as the service holds it. Errors as
    /// `createSubprofile`.
    Call<Subprofile> updateSubprofile(DatasetArguments arguments) const;
    /// Deletes history, watchlist and profile, without waiting in between. The outcome is that of the profile; a cancel
    /// ends all three.
    Call<void> deleteSubprofile() const;

    /// Deletes the viewing history. One that is not there counts as deleted.
    Call<void> deleteHistory() const;

    /// Records of the viewing history.
    using History = std::vector<HistoryData>;
    /// The arguments of `viewingHistory`.
    struct ViewingHistoryArguments {
        /// How many records are asked for.
        Required<std::uint64_t> limit;
    };
    /// The records of the videos that the user has watched, in the order of the service.
    /// `unableToRetrieveHistoryData` if the answer has no such list.
    Call<History> viewingHistory(ViewingHistoryArguments arguments) const;

    /// The arguments of `listRecentVideos`.
    struct RecentVideosArguments {
        /// How many records are asked for.
        Required<std::uint64_t> limit;
        /// Whether videos marked as done are asked for, or the others.
        Required<bool> markedAsDone;
    };
    /// Recent records, of videos that are marked as done or of the others. Errors as `viewingHistory`.
    Call<History> listRecentVideos(RecentVideosArguments arguments) const;

    /// The arguments of `listVideosForShow`.
    struct VideosForShowArguments {
        /// The id of the show.
        Required<TrelvoNumber> showId;
        /// Whether videos marked as done are asked for, or the others; empty for both.
        Required<std::optional<bool>> markedAsDone;
    };
    /// The records of one show. Errors as `viewingHistory`.
    Call<History> listVideosForShow(VideosForShowArguments arguments) const;

    /// The arguments of `getVideoProgress`.
    struct VideoProgressArguments {
        /// The id of the show.
        Required<TrelvoNumber> showId;
        /// The house number of the video.
        Required<std::string> houseNumber;
    };
    /// The records of one video. Errors as `viewingHistory`.
    Call<History> getVideoProgress(VideoProgressArguments arguments) const;

    /// The arguments of `updateVideoProgress`.
    struct UpdateVideoProgressArguments {
        /// The id of the show.
        Required<TrelvoNumber> showId;
        /// The house number of the video.
        Required<std::string> houseNumber;
        /// In seconds.
        Required<TrelvoNumber> progress;
        /// Whether the video counts as watched.
        Required<bool> isDone;
    };
    /// Records how far one video has been watched and gives its records. Errors as `viewingHistory`.
    Call<History> updateVideoProgress(UpdateVideoProgressArguments arguments) const;

    /// What is on the user's watchlist, in the order of the service. `unableToRetrieveSavedData` if the answer has no
    /// such list.
    Call<std::vector<SavedData>> listWatchlistShowIds() const;

    /// The argument of `addWatchlistShow` and `deleteShow`.
    struct ShowArguments {
        /// The id of the show.
        Required<TrelvoNumber> showId;
    };
    /// Puts a show on the watchlist and gives the records of the answer. Errors as `listWatchlistShowIds`.
    Call<std::vector<SavedData>> addWatchlistShow(ShowArguments arguments) const;
    /// Takes a show off the watchlist. A 404 is an error.
    Call<void> deleteShow(ShowArguments arguments) const;

private:
    friend struct UserClientProbe;
    explicit UserClient(std::shared_ptr<detail::UserSession> session);

    static std::shared_ptr<UserClient> make(std::shared_ptr<const TrelvoContext> context,
                                            std::function<double()> now);
    template <class A, class V>
    Call<V> call(detail::UserOperation<A, V> operation, std::vector<Call<void>> companions = {}) const;

    const std::shared_ptr<detail::UserSession> session_;
};

}  // namespace VanticRestKit
