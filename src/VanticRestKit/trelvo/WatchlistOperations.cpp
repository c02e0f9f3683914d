#include <VanticRestKit/trelvo/detail/DatasetOperations.h>
#include <VanticRestKit/trelvo/detail/TrelvoState.h>
#include <VanticRestKit/trelvo/Saved/AddShowURI.h>
#include <VanticRestKit/trelvo/Saved/DeleteSavedURI.h>
#include <VanticRestKit/trelvo/Saved/DeleteShowURI.h>
#include <VanticRestKit/trelvo/Saved/ListAllShowsURI.h>
#include <VanticRestKit/trelvo/Saved/SavedResponse.h>

namespace VanticRestKit {

namespace {

using Answer = Result<SavedResponse, LoaderError>;
using Records = std::vector<SavedData>;

/// Keeps the tokens of an answer, then gives its records.
auto records(std::weak_ptr<detail::TrelvoState> state) {
    return [state = std::move(state)](Answer& answer) -> Result<Records, TrelvoError> {
        if (!answer) return detail::generalFailure(answer.error());
        detail::storeAuth(state, answer->auth);
        if (!answer->data) return Failure(TrelvoError::unableToRetrieveSavedData());
        return *std::move(answer->data);
    };
}

/// Keeps the tokens of an answer; its records do not matter.
auto deletion(std::weak_ptr<detail::TrelvoState> state) {
    return [state = std::move(state)](const Answer& answer) -> Result<void, TrelvoError> {
        if (!answer) return detail::generalFailure(answer.error());
        detail::storeAuth(state, answer->auth);
        return {};
    };
}

}  // namespace

void Trelvo::listWatchlistShowIds(WatchlistArguments arguments, const TrelvoContext& context) {
    detail::runOperation<SavedResponse, Records>(
        *state_, "listWatchlistShowIds", context, std::move(arguments.completionHandler).value(),
        [](const std::string& uid, SourceSystem source) {
            return ListAllShowsURI{.uid = uid, .source = source, .slug = TrelvoSlug::watchlist};
        },
        records(state_));
}

void Trelvo::addWatchlistShow(AddShowArguments arguments, const TrelvoContext& context) {
    detail::runOperation<SavedResponse, Records>(
        *state_, "addWatchlistShow", context, std::move(arguments.completionHandler).value(),
        [&](const std::string& uid, SourceSystem source) {
            return AddShowURI({.uid = uid,
                               .source = source,
                               .slug = TrelvoSlug::watchlist,
                               .showId = arguments.showId.value()});
        },
        records(state_));
}

void Trelvo::deleteShow(DeleteShowArguments arguments, const TrelvoContext& context) {
    detail::runOperation<SavedResponse, void>(
        *state_, "deleteShow", context, std::move(arguments.completionHandler).value(),
        [&](const std::string& uid, SourceSystem source) {
            return DeleteShowURI({.uid = uid,
                                  .source = source,
                                  .slug = TrelvoSlug::watchlist,
                                  .showId = arguments.showId.value()});
        },
        deletion(state_));
}

void detail::deleteWatchlist(TrelvoState& state, const TrelvoContext& context,
                             Trelvo::Completion<void> completion) {
    runOperation<SavedResponse, void>(
        state, "deleteWatchlist", context, std::move(completion),
        [](const std::string& uid, SourceSystem source) {
            return DeleteSavedURI{.uid = uid, .source = source, .slug = TrelvoSlug::watchlist};
        },
        deletion(state.weak_from_this()));
}

}  // namespace VanticRestKit
