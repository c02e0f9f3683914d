// What a user has saved, has watched and may like, as rows, and the operations that change it. Without a signed-in user
// these operations fail, and the failed part offers to sign in.

#include "Pages.h"

#include <algorithm>

namespace living_room {
namespace {

constexpr std::uint64_t maxRecords = 20;

/// The videos of a history as tiles, in its order, with how far each was watched.
Task<Answer> watchedRow(Visit visit, UserClient::Call<UserClient::History> operation,
                        const char* sentenceIfNone) {
    const auto records = co_await operation.value(visit.options());
    if (!records) co_return failedPart(records.error());
    std::vector<std::string> houseNumbers;
    for (const HistoryData& record : *records) houseNumbers.push_back(record.key);
    if (houseNumbers.empty()) co_return emptyPart(sentenceIfNone);
    auto resource = Endpoint::Videos({.houseNumbers = houseNumbers}, visit.catalogue());
    const auto list = co_await load(std::move(resource), visit.options());
    if (!list) co_return failedPart(list.error());
    co_return tilesPart("tiles", tilesOf(list->videos, *records, visit.service), sentenceIfNone);
}

/// The shows with these ids as tiles.
Task<Answer> showsRow(Visit visit, std::vector<std::string> ids, const char* sentenceIfNone) {
    if (ids.empty()) co_return emptyPart(sentenceIfNone);
    auto resource = Endpoint::Shows({.showSlugsOrIds = std::move(ids)}, visit.catalogue());
    const auto shows = co_await load(std::move(resource), visit.options());
    if (!shows) co_return failedPart(shows.error());
    co_return tilesPart("tiles", tilesOf(*shows, visit.service), sentenceIfNone);
}

}  // namespace

Task<Answer> continuePart(Visit visit) {
    if (!visit.user->account()) co_return partAnswer("sign-in-to-continue", {}, "empty");
    auto operation = visit.user->client->listRecentVideos({.limit = maxRecords, .markedAsDone = false});
    co_return co_await watchedRow(std::move(visit), std::move(operation),
                                  "Videos that you start will appear here.");
}

Task<Answer> historyPart(Visit visit) {
    auto operation = visit.user->client->viewingHistory({.limit = maxRecords});
    co_return co_await watchedRow(std::move(visit), std::move(operation),
                                  "You have not watched anything yet.");
}

Task<Answer> listPart(Visit visit) {
    const auto saved = co_await visit.user->client->listWatchlistShowIds().value(visit.options());
    if (!saved) co_return failedPart(saved.error());
    std::vector<std::string> ids;
    for (const SavedData& record : *saved) ids.push_back(record.key);
    co_return co_await showsRow(std::move(visit), std::move(ids), "Shows that you save will appear here.");
}

Task<Answer> recommendationsPart(Visit visit) {
    const RecsModuleURI route({.withModuleId = "because-you-watched",
                               .userId = visit.user->profile(),
                               .accountId = visit.user->account(),
                               .subprofileId = visit.user->profile(),
                               .limit = 12,
                               .httpMethod = "POST",
                               .exclude = std::vector<RecsModuleContext>(),
                               .include = std::vector<RecsModuleContext>(),
                               .andModuleContext = std::optional<RecsModuleContext>()});
    auto resource = Resource<RecommendationModule>::make({.with = route}, visit.user->recommendations);
    const auto module = co_await load(std::move(resource), visit.options());
    if (!module) co_return failedPart(module.error());
    std::vector<std::string> ids;
    for (const Recommendation& item : module->recommendations) {
        // Content of other catalogues cannot be opened here.
        const bool isShow = item.contentSource() == RecsContentSource::lumeno &&
                            item.contentType() == RecsContentType::program;
        if (isShow) ids.push_back(item.contentId().value_or(""));
    }
    co_return co_await showsRow(std::move(visit), std::move(ids),
                                "Recommendations will appear here after you have watched something.");
}

Task<Answer> saveButton(Visit visit) {
    if (!visit.user->account()) co_return partAnswer("sign-in-to-save", {});
    const std::string id = visit.field("show");
    const auto saved = co_await visit.user->client->listWatchlistShowIds().value(visit.options());
    if (!saved) co_return failedPart(saved.error());
    const bool isSaved =
        std::any_of(saved->begin(), saved->end(), [&](const SavedData& record) { return record.key == id; });
    co_return partAnswer("save", {{"show", id}, {"isSaved", isSaved}});
}

/// Whether it worked shows on the button, which the screen then loads again.
Task<Answer> save(Visit visit) {
    const auto id = numberIn(visit.field("show"));
    if (!id) co_return problemPage(400);
    if (visit.field("on") == "1") {
        auto operation = visit.user->client->addWatchlistShow({.showId = *id});
        static_cast<void>(co_await operation.value(visit.options()));
    } else {
        auto operation = visit.user->client->deleteShow({.showId = *id});
        static_cast<void>(co_await operation.value(visit.options()));
    }
    co_return partAnswer("", {});
}

Task<Answer> keepProgress(Visit visit) {
    const auto show = numberIn(visit.field("show"));
    const auto position = numberIn(visit.field("position"));
    if (!show || !position) co_return problemPage(400);
    auto operation = visit.user->client->updateVideoProgress({.showId = *show,
                                                              .houseNumber = visit.field("video"),
                                                              .progress = *position,
                                                              .isDone = visit.field("done") == "1"});
    // The browser may be leaving the page; the position is kept all the same.
    static_cast<void>(co_await operation.value(visit.service.options({})));
    co_return partAnswer("", {});
}

}  // namespace living_room
