#include <VanticRestKit/trelvo/Saved/detail/SavedOperations.h>

#include <VanticRestKit/trelvo/Saved/SavedResponse.h>
#include <VanticRestKit/trelvo/Saved/SavedRoutes.h>

namespace VanticRestKit::detail {

namespace {

using Answer = Result<SavedResponse, LoaderError>;
using Records = std::vector<SavedData>;

/// Keeps the tokens of an answer, then gives its records.
auto records(std::weak_ptr<TrelvoState> state) {
    return [state = std::move(state)](Answer& answer) -> Result<Records, TrelvoError> {
        if (!answer) return generalFailure(answer.error());
        storeAuth(state, answer->auth);
        if (!answer->data) return Failure(TrelvoError::unableToRetrieveSavedData());
        return *std::move(answer->data);
    };
}

/// Keeps the tokens of an answer; its records do not matter.
auto deletion(std::weak_ptr<TrelvoState> state) {
    return [state = std::move(state)](const Answer& answer) -> Result<void, TrelvoError> {
        if (!answer) return generalFailure(answer.error());
        storeAuth(state, answer->auth);
        return {};
    };
}

}  // namespace

void listWatchlistShowIds(TrelvoState& state, const TrelvoContext& context, SavedCompletion completion) {
    runOperation<SavedResponse, Records>(
        state, "listWatchlistShowIds", context, std::move(completion),
        [](const std::string& uid, SourceSystem source) {
            return ListAllShowsURI{.uid = uid, .source = source, .slug = TrelvoSlug::watchlist};
        },
        records(state.weak_from_this()));
}

void addWatchlistShow(TrelvoState& state, std::int64_t showId, const TrelvoContext& context,
                      SavedCompletion completion) {
    runOperation<SavedResponse, Records>(
        state, "addWatchlistShow", context, std::move(completion),
        [showId](const std::string& uid, SourceSystem source) {
            return AddShowURI(
                {.uid = uid, .source = source, .slug = TrelvoSlug::watchlist, .showId = showId});
        },
        records(state.weak_from_this()));
}

void deleteShow(TrelvoState& state, std::int64_t showId, const TrelvoContext& context,
                TrelvoCompletion<void> completion) {
    runOperation<SavedResponse, void>(
        state, "deleteShow", context, std::move(completion),
        [showId](const std::string& uid, SourceSystem source) {
            return DeleteShowURI(
                {.uid = uid, .source = source, .slug = TrelvoSlug::watchlist, .showId = showId});
        },
        deletion(state.weak_from_this()));
}

void deleteWatchlist(TrelvoState& state, const TrelvoContext& context, TrelvoCompletion<void> completion) {
    runOperation<SavedResponse, void>(
        state, "deleteWatchlist", context, std::move(completion),
        [](const std::string& uid, SourceSystem source) {
            return DeleteSavedURI{.uid = uid, .source = source, .slug = TrelvoSlug::watchlist};
        },
        deletion(state.weak_from_this()));
}

}  // namespace VanticRestKit::detail
