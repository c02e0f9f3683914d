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

    struct GetSubprofilesArguments {
        Required<bool> includePrivateData;
        Required<bool> includeFamilyData;
        Required<Completion<std::vector<Subprofile>>> completionHandler;
    };
    /// The profiles of the user. `datasetDoesNotExist` where the service answers 404.
    void getSubprofiles(GetSubprofilesArguments arguments, const TrelvoContext& context);

    struct DatasetArguments {
        Required<Dictionary> dataset;
        Required<Completion<Subprofile>> completionHandler;
    };
    void createSubprofile(DatasetArguments arguments, const TrelvoContext& context);
    void updateSubprofile(DatasetArguments arguments, const TrelvoContext& context);

    struct DeletionArguments {
        Required<Completion<void>> completionHandler;
    };
    /// Deletes history, watchlist and profile, one started after the other; tells how the profile fared.
    void deleteSubprofile(DeletionArguments arguments, const TrelvoContext& context);

    /// Deletes the viewing history. One that is not there counts as deleted.
    void deleteHistory(DeletionArguments arguments, const TrelvoContext& context);

    using HistoryCompletion = Completion<std::vector<HistoryData>>;
    struct ViewingHistoryArguments {
        Required<std::uint64_t> limit;
        Required<HistoryCompletion> completionHandler;
    };
    void viewingHistory(ViewingHistoryArguments arguments, const TrelvoContext& context);

    struct RecentVideosArguments {
        Required<std::uint64_t> limit;
        Required<bool> markedAsDone;
        Required<HistoryCompletion> completionHandler;
    };
    void listRecentVideos(RecentVideosArguments arguments, const TrelvoContext& context);

    struct VideosForShowArguments {
        Required<TrelvoNumber> showId;
        Required<std::optional<bool>> markedAsDone;
        Required<HistoryCompletion> completionHandler;
    };
    void listVideosForShow(VideosForShowArguments arguments, const TrelvoContext& context);

    struct VideoProgressArguments {
        Required<TrelvoNumber> showId;
        Required<std::string> houseNumber;
        Required<HistoryCompletion> completionHandler;
    };
    void getVideoProgress(VideoProgressArguments arguments, const TrelvoContext& context);

    struct UpdateVideoProgressArguments {
        Required<TrelvoNumber> showId;
        Required<std::string> houseNumber;
        /// In seconds.
        Required<TrelvoNumber> progress;
        Required<bool> isDone;
        Required<HistoryCompletion> completionHandler;
    };
    void updateVideoProgress(UpdateVideoProgressArguments arguments, const TrelvoContext& context);

    struct WatchlistArguments {
        Required<Completion<std::vector<SavedData>>> completionHandler;
    };
    void listWatchlistShowIds(WatchlistArguments arguments, const TrelvoContext& context);

    struct AddShowArguments {
        Required<TrelvoNumber> showId;
        Required<Completion<std::vector<SavedData>>> completionHandler;
    };
    void addWatchlistShow(AddShowArguments arguments, const TrelvoContext& context);

    struct DeleteShowArguments {
        Required<TrelvoNumber> showId;
        Required<Completion<void>> completionHandler;
    };
    void deleteShow(DeleteShowArguments arguments, const TrelvoContext& context);

private:
    friend struct TrelvoProbe;
    explicit Trelvo(std::shared_ptr<detail::TrelvoState> state);

    std::shared_ptr<detail::TrelvoState> state_;
};

}  // namespace VanticRestKit
