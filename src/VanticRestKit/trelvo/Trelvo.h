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
/// It holds the user's tokens, in memory alone, and gets new ones where they end within five seconds. Each operation
/// does that first, on the thread of its caller, **which it blocks until the tokens are there**. Never call one from a
/// completion: it would wait on the queue that it occupies.
///
/// A completion is called at most once: on the caller's thread before the operation returns where no token is to be
/// had, else on the delegate queue of the session. Where the context builds no request for the data it is never
/// called, and where it builds none for the token the caller waits without end.
///
/// A number beyond the signed range, which only an unsigned argument can hold, completes the operation with `unknown`
/// on the caller's thread, before anything is sent.
///
/// Any number of threads may call operations at once. Each gets tokens for itself; the last answer stays.
class VRK_EXPORT Trelvo {
public:
    /// Receives the outcome of an operation.
    template <class T>
    using Completion = UniqueFunction<void(Result<T, TrelvoError>)>;

    /// The one instance, made on first use.
    static Trelvo& shared();

    Trelvo(const Trelvo&) = delete;
    Trelvo& operator=(const Trelvo&) = delete;

    /// The tokens in use; empty at first.
    std::optional<Auth> auth() const;
    /// What the last attempt to get tokens failed with; empty at first.
    std::optional<TrelvoError> authError() const;
    /// Forgets tokens and error: for signing out. A request under way may still bring new tokens.
    void clearAuth();

    /// The arguments of `getSubprofiles`.
    struct GetSubprofilesArguments {
        /// Whether private data is asked for too.
        Required<bool> includePrivateData;
        /// Whether data of the family is asked for too.
        Required<bool> includeFamilyData;
        /// Receives the outcome, once at most.
        Required<Completion<std::vector<Subprofile>>> completionHandler;
    };
    /// The profiles of the user. `datasetDoesNotExist` where the service answers 404.
    void getSubprofiles(GetSubprofilesArguments arguments, const TrelvoContext& context);

    /// The arguments of `createSubprofile` and `updateSubprofile`.
    struct DatasetArguments {
        /// The keys of the profile with their values. Nested objects and lists are not sent.
        Required<Dictionary> dataset;
        /// Receives the outcome, once at most.
        Required<Completion<Subprofile>> completionHandler;
    };
    /// Stores `dataset` as a new profile and gives the profile as the service holds it. `datasetNamespaceMismatch` if
    /// the answer is another dataset, `unknown` if it has none.
    void createSubprofile(DatasetArguments arguments, const TrelvoContext& context);
    /// Replaces values of the user's profile by `dataset` and gives the profile as the service holds it. Errors as
    /// `createSubprofile`.
    void updateSubprofile(DatasetArguments arguments, const TrelvoContext& context);

    /// The argument of `deleteSubprofile` and `deleteHistory`.
    struct DeletionArguments {
        /// Receives the outcome, once at most.
        Required<Completion<void>> completionHandler;
    };
    /// Deletes history, watchlist and profile, one started after the other; tells how the profile fared.
    void deleteSubprofile(DeletionArguments arguments, const TrelvoContext& context);

    /// Deletes the viewing history. One that is not there counts as deleted.
    void deleteHistory(DeletionArguments arguments, const TrelvoContext& context);

    /// Receives records of the viewing history.
    using HistoryCompletion = Completion<std::vector<HistoryData>>;
    /// The arguments of `viewingHistory`.
    struct ViewingHistoryArguments {
        /// How many records are asked for.
        Required<std::uint64_t> limit;
        /// Receives the outcome, once at most.
        Required<HistoryCompletion> completionHandler;
    };
    /// The records of the videos that the user has watched, in the order of the service.
    /// `unableToRetrieveHistoryData` if the answer has no such list.
    void viewingHistory(ViewingHistoryArguments arguments, const TrelvoContext& context);

    /// The arguments of `listRecentVideos`.
    struct RecentVideosArguments {
        /// How many records are asked for.
        Required<std::uint64_t> limit;
        /// Whether videos marked as done are asked for, or the others.
        Required<bool> markedAsDone;
        /// Receives the outcome, once at most.
        Required<HistoryCompletion> completionHandler;
    };
    /// Recent records, of videos that are marked as done or of the others. Errors as `viewingHistory`.
    void listRecentVideos(RecentVideosArguments arguments, const TrelvoContext& context);

    /// The arguments of `listVideosForShow`.
    struct VideosForShowArguments {
        /// The id of the show.
        Required<TrelvoNumber> showId;
        /// Whether videos marked as done are asked for, or the others; empty for both.
        Required<std::optional<bool>> markedAsDone;
        /// Receives the outcome, once at most.
        Required<HistoryCompletion> completionHandler;
    };
    /// The records of one show. Errors as `viewingHistory`.
    void listVideosForShow(VideosForShowArguments arguments, const TrelvoContext& context);

    /// The arguments of `getVideoProgress`.
    struct VideoProgressArguments {
        /// The id of the show.
        Required<TrelvoNumber> showId;
        /// The house number of the video.
        Required<std::string> houseNumber;
        /// Receives the outcome, once at most.
        Required<HistoryCompletion> completionHandler;
    };
    /// The records of one video. Errors as `viewingHistory`.
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
        /// Receives the outcome, once at most.
        Required<HistoryCompletion> completionHandler;
    };
    /// Records how far one video has been watched and gives its records. Errors as `viewingHistory`.
    void updateVideoProgress(UpdateVideoProgressArguments arguments, const TrelvoContext& context);

    /// The argument of `listWatchlistShowIds`.
    struct WatchlistArguments {
        /// Receives the outcome, once at most.
        Required<Completion<std::vector<SavedData>>> completionHandler;
    };
    /// What is on the user's watchlist, in the order of the service. `unableToRetrieveSavedData` if the answer has no
    /// such list.
    void listWatchlistShowIds(WatchlistArguments arguments, const TrelvoContext& context);

    /// The arguments of `addWatchlistShow`.
    struct AddShowArguments {
        /// The id of the show.
        Required<TrelvoNumber> showId;
        /// Receives the outcome, once at most.
        Required<Completion<std::vector<SavedData>>> completionHandler;
    };
    /// Puts a show on the watchlist and gives the records of the answer. Errors as `listWatchlistShowIds`.
    void addWatchlistShow(AddShowArguments arguments, const TrelvoContext& context);

    /// The arguments of `deleteShow`.
    struct DeleteShowArguments {
        /// The id of the show.
        Required<TrelvoNumber> showId;
        /// Receives the outcome, once at most.
        Required<Completion<void>> completionHandler;
    };
    /// Takes a show off the watchlist. A 404 is an error.
    void deleteShow(DeleteShowArguments arguments, const TrelvoContext& context);

private:
    friend struct TrelvoProbe;
    explicit Trelvo(std::shared_ptr<detail::TrelvoState> state);

    std::shared_ptr<detail::TrelvoState> state_;
};

}  // namespace VanticRestKit
