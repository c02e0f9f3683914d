#pragma once

/// \file
/// `Trelvo`: the client of the user data service.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/dispatch/UniqueFunction.h>
#include <VanticRestKit/platform/error/AnyValue.h>
#include <VanticRestKit/platform/result/Result.h>
#include <VanticRestKit/trelvo/Common/Auth.h>
#include <VanticRestKit/trelvo/Common/TrelvoContext.h>
#include <VanticRestKit/trelvo/Common/TrelvoError.h>
#include <VanticRestKit/trelvo/Common/TrelvoNumber.h>
#include <VanticRestKit/trelvo/Dataset/Subprofile.h>
#include <VanticRestKit/trelvo/History/HistoryData.h>
#include <VanticRestKit/trelvo/Saved/SavedData.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

namespace detail {
class TrelvoState;
}

/// The client of the user data service: profiles, history, progress and watchlist of the signed-in user.
///
/// It keeps the user's tokens in memory and requests new ones if they expire within five seconds. Each operation does
/// this first, **blocking the calling thread until it has a token**. Never call an operation from a completion: it
/// would wait for a response on the queue that it blocks.
///
/// A completion is called at most once. If the client cannot get a token, it is called on the caller's thread before
/// the operation returns, otherwise on the delegate queue of the session. If the context cannot build the request for
/// the data, it is never called; if the context cannot build the request for the token, the caller waits forever.
///
/// If an unsigned argument is out of the signed range, the operation completes with `unknown` on the caller's thread
/// before anything is sent.
///
/// Several threads may call operations at the same time. Each operation requests tokens separately; those of the last
/// response are kept.
class VRK_EXPORT Trelvo {
public:
    /// Receives the outcome of an operation.
    template <class T>
    using Completion = UniqueFunction<void(Result<T, TrelvoError>)>;

    /// The shared instance, created on first use.
    static Trelvo& shared();

    Trelvo(const Trelvo&) = delete;
    Trelvo& operator=(const Trelvo&) = delete;

    /// The tokens in use; empty at first.
    std::optional<Auth> auth() const;
    /// The error of the last attempt to get tokens; empty if there was none or if it succeeded.
    std::optional<TrelvoError> authError() const;
    /// Discards the tokens and the error, to sign out. A request in progress may still store new tokens.
    void clearAuth();

    /// The arguments of `getSubprofiles`.
    struct GetSubprofilesArguments {
        /// Whether private data is included.
        Required<bool> includePrivateData;
        /// Whether data of the family is included.
        Required<bool> includeFamilyData;
        /// Receives the outcome, at most once.
        Required<Completion<std::vector<Subprofile>>> completionHandler;
    };
    /// The profiles of the user. Fails with `datasetDoesNotExist` if the service responds with 404.
    void getSubprofiles(GetSubprofilesArguments arguments, const TrelvoContext& context);

    /// The arguments of `createSubprofile` and `updateSubprofile`.
    struct DatasetArguments {
        /// The keys and values of the profile. Nested objects and lists are not sent.
        Required<Dictionary> dataset;
        /// Receives the outcome, at most once.
        Required<Completion<Subprofile>> completionHandler;
    };
    /// Stores `dataset` as a new profile and returns the profile as the service stored it. Fails with
    /// `datasetNamespaceMismatch` if the response contains a dataset of another namespace, and with `unknown` if it
    /// contains none.
    void createSubprofile(DatasetArguments arguments, const TrelvoContext& context);
    /// Changes the values in `dataset` in the user's profile and returns the profile as the service stored it. Fails
    /// like `createSubprofile`.
    void updateSubprofile(DatasetArguments arguments, const TrelvoContext& context);

    /// The argument of `deleteSubprofile` and `deleteHistory`.
    struct DeletionArguments {
        /// Receives the outcome, at most once.
        Required<Completion<void>> completionHandler;
    };
    /// Starts deleting the history, then the watchlist, then the profile. The outcome is that of the profile.
    void deleteSubprofile(DeletionArguments arguments, const TrelvoContext& context);

    /// Deletes the viewing history. Succeeds if there is none.
    void deleteHistory(DeletionArguments arguments, const TrelvoContext& context);

    /// Receives records of the viewing history.
    using HistoryCompletion = Completion<std::vector<HistoryData>>;
    /// The arguments of `viewingHistory`.
    struct ViewingHistoryArguments {
        /// The maximum number of records.
        Required<std::uint64_t> limit;
        /// Receives the outcome, at most once.
        Required<HistoryCompletion> completionHandler;
    };
    /// The records of the videos that the user has watched, in the order of the service. Fails with
    /// `unableToRetrieveHistoryData` if the response has no such list.
    void viewingHistory(ViewingHistoryArguments arguments, const TrelvoContext& context);

    /// The arguments of `listRecentVideos`.
    struct RecentVideosArguments {
        /// The maximum number of records.
        Required<std::uint64_t> limit;
        /// True for videos that are marked as done, false for the others.
        Required<bool> markedAsDone;
        /// Receives the outcome, at most once.
        Required<HistoryCompletion> completionHandler;
    };
    /// Recent records, of videos that are marked as done or of the others. Fails like `viewingHistory`.
    void listRecentVideos(RecentVideosArguments arguments, const TrelvoContext& context);

    /// The arguments of `listVideosForShow`.
    struct VideosForShowArguments {
        /// The id of the show.
        Required<TrelvoNumber> showId;
        /// True for videos that are marked as done, false for the others, empty for both.
        Required<std::optional<bool>> markedAsDone;
        /// Receives the outcome, at most once.
        Required<HistoryCompletion> completionHandler;
    };
    /// The records of one show. Fails like `viewingHistory`.
    void listVideosForShow(VideosForShowArguments arguments, const TrelvoContext& context);

    /// The arguments of `getVideoProgress`.
    struct VideoProgressArguments {
        /// The id of the show.
        Required<TrelvoNumber> showId;
        /// The house number of the video.
        Required<std::string> houseNumber;
        /// Receives the outcome, at most once.
        Required<HistoryCompletion> completionHandler;
    };
    /// The records of one video. Fails like `viewingHistory`.
    void getVideoProgress(VideoProgressArguments arguments, const TrelvoContext& context);

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
        /// Receives the outcome, at most once.
        Required<HistoryCompletion> completionHandler;
    };
    /// Stores the viewing position in a video and returns its records. Fails like `viewingHistory`.
    void updateVideoProgress(UpdateVideoProgressArguments arguments, const TrelvoContext& context);

    /// The argument of `listWatchlistShowIds`.
    struct WatchlistArguments {
        /// Receives the outcome, at most once.
        Required<Completion<std::vector<SavedData>>> completionHandler;
    };
    /// The watchlist of the user, in the order of the service. Fails with `unableToRetrieveSavedData` if the response
    /// has no such list.
    void listWatchlistShowIds(WatchlistArguments arguments, const TrelvoContext& context);

    /// The arguments of `addWatchlistShow`.
    struct AddShowArguments {
        /// The id of the show.
        Required<TrelvoNumber> showId;
        /// Receives the outcome, at most once.
        Required<Completion<std::vector<SavedData>>> completionHandler;
    };
    /// Adds a show to the watchlist and returns the records of the response. Fails like `listWatchlistShowIds`.
    void addWatchlistShow(AddShowArguments arguments, const TrelvoContext& context);

    /// The arguments of `deleteShow`.
    struct DeleteShowArguments {
        /// The id of the show.
        Required<TrelvoNumber> showId;
        /// Receives the outcome, at most once.
        Required<Completion<void>> completionHandler;
    };
    /// Removes a show from the watchlist. A 404 is an error.
    void deleteShow(DeleteShowArguments arguments, const TrelvoContext& context);

private:
    friend struct TrelvoProbe;
    explicit Trelvo(std::shared_ptr<detail::TrelvoState> state);

    std::shared_ptr<detail::TrelvoState> state_;
};

}  // namespace VanticRestKit
