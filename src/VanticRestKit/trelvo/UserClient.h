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
/// Only `wait()` and `get()` block. All functions may be called on any thread, also in completions. Each operation can
/// be started any number of times, in any form: `start` with a completion, `co_await value()`, `future`, `wait` or
/// `publisher`.
///
/// ```cpp
/// auto client = UserClient::make(context);
/// Cancellable load = client->getVideoProgress({.showId = 1, .houseNumber = "x"})
///                        .start({.on = DispatchQueue::main(), .deadline = 5s}, [](auto records) { ... });
/// ```
///
/// **Outcomes** are delivered once for each start, never inside the call, on the queue of the options or, if they name
/// none, on a serial queue of the client. `future().get()` and `wait()` fail immediately on that queue and on the one
/// on which the context's service delivers. A cancelled start ends with `general`, which contains a `LoaderError` with
/// the transport error `URLErrorCode::cancelled`. If it misses its deadline, which includes waiting for tokens, the
/// code is `URLErrorCode::timedOut`. If the context cannot build a request, or a number is out of the signed range, the
/// outcome is `unknown`.
///
/// **The context**: the user, the source and the requests are read when an operation is started, on the thread that
/// starts it, and by `get()` and `wait()` on their thread. Requests are built before the token is known; their
/// `Authorization` contains a placeholder, which the client replaces later. `service` and `logError` are called on
/// queues of the client and must be callable on any thread.
///
/// **Tokens** are kept only in memory. If there are none, or they expire within five seconds, all operations that need
/// them wait for one shared token request, which is cancelled when no operation waits for it any longer. If the service
/// responds with 401 although the token seemed valid, the operation is sent once more with new tokens. If the token
/// request fails, operations continue with the old tokens; if there are none, they end with `noAuthToken` or
/// `accountReconsentRequired`.
///
/// **The user** is read at each start. If it is not the user of the current tokens, the operations in progress for that
/// user end as cancelled, and the tokens are discarded before anything is sent. The same happens if there is no user;
/// the started operation then ends with `noUid`.
///
/// Operations that were created or started continue after the client is destroyed. No destructor waits.
class VRK_EXPORT UserClient {
public:
    /// The type of the operations below. Nothing happens before an operation is started.
    template <class T>
    using Call = Operation<Result<T, TrelvoError>>;

    /// Creates a client that keeps `context`, which must not be null.
    static std::shared_ptr<UserClient> make(std::shared_ptr<const TrelvoContext> context);

    UserClient(const UserClient&) = delete;
    UserClient& operator=(const UserClient&) = delete;

    /// The current tokens and their user; empty if there are none.
    std::optional<UserAuth> auth() const;
    /// Replaces the current tokens, for operations that wait or are started later. If `auth` is empty, the tokens are
    /// discarded and operations in progress continue. Tokens of another user end the operations in progress, as a
    /// change of the user does.
    void setAuth(std::optional<UserAuth> auth);
    /// Discards the tokens. Operations in progress end as cancelled.
    void signOut();

    /// Publishes the current state and then each change, on a queue of the client. A subscription does not keep the
    /// client alive. It ends without a completion when the client and all its operations have been destroyed.
    AnyPublisher<SignInState, Never> signInState() const;
    /// Publishes the tokens in the same way, for a host that saves them.
    AnyPublisher<std::optional<UserAuth>, Never> authChanges() const;

    /// The arguments of `getSubprofiles`.
    struct GetSubprofilesArguments {
        /// Whether private data is included.
        Required<bool> includePrivateData;
        /// Whether data of the family is included.
        Required<bool> includeFamilyData;
    };
    /// The profiles of the user. Fails with `datasetDoesNotExist` if the service responds with 404.
    Call<std::vector<Subprofile>> getSubprofiles(GetSubprofilesArguments arguments) const;

    /// The arguments of `createSubprofile` and `updateSubprofile`.
    struct DatasetArguments {
        /// The keys and values of the profile. Nested objects and lists are not sent.
        Required<Dictionary> dataset;
    };
    /// Stores `dataset` as a new profile and returns the profile as the service stored it. Fails with
    /// `datasetNamespaceMismatch` if the response contains a dataset of another namespace, and with `unknown` if it
    /// contains none.
    Call<Subprofile> createSubprofile(DatasetArguments arguments) const;
    /// Changes the values in `dataset` in the user's profile and returns the profile as the service stored it. Fails
    /// like `createSubprofile`.
    Call<Subprofile> updateSubprofile(DatasetArguments arguments) const;
    /// Deletes the history, the watchlist and the profile, with requests that run at the same time. The outcome is that
    /// of the profile; cancelling cancels all three.
    Call<void> deleteSubprofile() const;

    /// Deletes the viewing history. Succeeds if there is none.
    Call<void> deleteHistory() const;

    /// Records of the viewing history.
    using History = std::vector<HistoryData>;
    /// The arguments of `viewingHistory`.
    struct ViewingHistoryArguments {
        /// The maximum number of records.
        Required<std::uint64_t> limit;
    };
    /// The records of the videos that the user has watched, in the order of the service. Fails with
    /// `unableToRetrieveHistoryData` if the response has no such list.
    Call<History> viewingHistory(ViewingHistoryArguments arguments) const;

    /// The arguments of `listRecentVideos`.
    struct RecentVideosArguments {
        /// The maximum number of records.
        Required<std::uint64_t> limit;
        /// True for videos that are marked as done, false for the others.
        Required<bool> markedAsDone;
    };
    /// Recent records, of videos that are marked as done or of the others. Fails like `viewingHistory`.
    Call<History> listRecentVideos(RecentVideosArguments arguments) const;

    /// The arguments of `listVideosForShow`.
    struct VideosForShowArguments {
        /// The id of the show.
        Required<TrelvoNumber> showId;
        /// True for videos that are marked as done, false for the others, empty for both.
        Required<std::optional<bool>> markedAsDone;
    };
    /// The records of one show. Fails like `viewingHistory`.
    Call<History> listVideosForShow(VideosForShowArguments arguments) const;

    /// The arguments of `getVideoProgress`.
    struct VideoProgressArguments {
        /// The id of the show.
        Required<TrelvoNumber> showId;
        /// The house number of the video.
        Required<std::string> houseNumber;
    };
    /// The records of one video. Fails like `viewingHistory`.
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
    /// Stores the viewing position in a video and returns its records. Fails like `viewingHistory`.
    Call<History> updateVideoProgress(UpdateVideoProgressArguments arguments) const;

    /// The watchlist of the user, in the order of the service. Fails with `unableToRetrieveSavedData` if the response
    /// has no such list.
    Call<std::vector<SavedData>> listWatchlistShowIds() const;

    /// The argument of `addWatchlistShow` and `deleteShow`.
    struct ShowArguments {
        /// The id of the show.
        Required<TrelvoNumber> showId;
    };
    /// Adds a show to the watchlist and returns the records of the response. Fails like `listWatchlistShowIds`.
    Call<std::vector<SavedData>> addWatchlistShow(ShowArguments arguments) const;
    /// Removes a show from the watchlist. A 404 is an error.
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
