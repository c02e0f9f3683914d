#include <VanticRestKit/trelvo/Saved/detail/SavedOperations.h>

#include <VanticRestKit/trelvo/Saved/SavedRoutes.h>

namespace VanticRestKit::detail {

namespace {

using Answer = Result<SavedResponse, LoaderError>;
using Records = std::vector<SavedData>;

/// Stores the tokens of a response and returns its records.
Result<Records, TrelvoError> records(Answer& answer, TokenKeeper* keeper) {
    if (!answer) return generalFailure(answer.error());
    keepAuth(keeper, answer->auth);
    if (!answer->data) return Failure(TrelvoError::unableToRetrieveSavedData());
    return *std::move(answer->data);
}

}  // namespace

SavedOperation<Records> listWatchlistShowIds() {
    return {.name = "listWatchlistShowIds",
            .route =
                [](const std::string& uid, SourceSystem source) {
                    return ListAllShowsURI{.uid = uid, .source = source, .slug = TrelvoSlug::watchlist};
                },
            .conclude = records};
}

SavedOperation<Records> addWatchlistShow(TrelvoNumber showId) {
    return {.name = "addWatchlistShow",
            .route =
                [showId](const std::string& uid, SourceSystem source) {
                    return AddShowURI({.uid = uid,
                                       .source = source,
                                       .slug = TrelvoSlug::watchlist,
                                       .showId = showId.value().value_or(0)});
                },
            .conclude = records,
            .argumentError = signedRangeError(showId, "addWatchlistShow", "showId")};
}

SavedOperation<void> deleteShow(TrelvoNumber showId) {
    return {.name = "deleteShow",
            .route =
                [showId](const std::string& uid, SourceSystem source) {
                    return DeleteShowURI({.uid = uid,
                                          .source = source,
                                          .slug = TrelvoSlug::watchlist,
                                          .showId = showId.value().value_or(0)});
                },
            .conclude = concludeWithoutValue<SavedResponse>,
            .argumentError = signedRangeError(showId, "deleteShow", "showId")};
}

SavedOperation<void> deleteWatchlist() {
    return {.name = "deleteWatchlist",
            .route =
                [](const std::string& uid, SourceSystem source) {
                    return DeleteSavedURI{.uid = uid, .source = source, .slug = TrelvoSlug::watchlist};
                },
            .conclude = concludeWithoutValue<SavedResponse>};
}

}  // namespace VanticRestKit::detail
