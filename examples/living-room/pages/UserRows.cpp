// What a user has saved, watched and may like, as rows; and the operations that change it.

#include "Parts.h"

#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/recs/RecommendationModule.h>
#include <VanticRestKit/recs/RecsRoutes.h>

#include <charconv>

namespace living_room {

using namespace VanticRestKit;

namespace {

constexpr std::uint64_t maxRecords = 20;

Answer signInFirst(const char* why) {
    return blockAnswer(html(R"(<p class="empty"><a href="/me">Sign in</a> {}</p>)", why), "empty");
}

/// The number that `text` is; empty if it is none.
std::optional<std::int64_t> numberIn(const std::string& text) {
    std::int64_t number = 0;
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    if (read.ec != std::errc() || read.ptr != end || number < 0) return std::nullopt;
    return number;
}

/// The videos of a history as tiles, in its order, with how far each was watched.
Task<Answer> watchedRow(Visit visit, UserClient::Call<UserClient::History> operation,
                        const char* sentenceIfNone) {
    const auto records = co_await run(std::move(operation), visit.options());
    if (!records) co_return failedBlock(records.error());
    std::vector<std::string> houseNumbers;
    for (const HistoryData& record : *records) houseNumbers.push_back(record.key);
    if (houseNumbers.empty()) co_return blockAnswer(emptyMarkup(sentenceIfNone), "empty");
    auto resource = Endpoint::Videos({.houseNumbers = houseNumbers}, visit.catalogue());
    const auto list = co_await load(std::move(resource), visit.options());
    if (!list) co_return failedBlock(list.error());
    co_return tilesAnswer(tilesOf(list->videos, *records, visit.service), sentenceIfNone);
}

/// The shows of these ids as tiles.
Task<Answer> showsRow(Visit visit, std::vector<std::string> ids, const char* sentenceIfNone) {
    if (ids.empty()) co_return blockAnswer(emptyMarkup(sentenceIfNone), "empty");
    auto resource = Endpoint::Shows({.showSlugsOrIds = std::move(ids)}, visit.catalogue());
    const auto shows = co_await load(std::move(resource), visit.options());
    if (!shows) co_return failedBlock(shows.error());
    std::vector<ViewTile> tiles;
    for (const Show& show : *shows) tiles.push_back(tileOf(CollectionItem(show), visit.service));
    co_return tilesAnswer(tiles, sentenceIfNone);
}

}  // namespace

Task<Answer> continueRow(Visit visit) {
    if (!visit.user->account()) co_return signInFirst("to go on where you stopped.");
    auto operation = visit.user->client().listRecentVideos({.limit = maxRecords, .markedAsDone = false});
    co_return co_await watchedRow(std::move(visit), std::move(operation),
                                  "What you begin to watch waits here.");
}

Task<Answer> history(Visit visit) {
    if (!visit.user->account()) co_return signInFirst("to see what you watched.");
    auto operation = visit.user->client().viewingHistory({.limit = maxRecords});
    co_return co_await watchedRow(std::move(visit), std::move(operation), "You have watched nothing yet.");
}

Task<Answer> myList(Visit visit) {
    if (!visit.user->account()) co_return signInFirst("to see your list.");
    const auto saved = co_await run(visit.user->client().listWatchlistShowIds(), visit.options());
    if (!saved) co_return failedBlock(saved.error());
    std::vector<std::string> ids;
    for (const SavedData& record : *saved) ids.push_back(record.key);
    co_return co_await showsRow(std::move(visit), std::move(ids), "Save a show, and it is here.");
}

Task<Answer> recommendations(Visit visit) {
    if (!visit.user->account()) co_return signInFirst("to see what you may like.");
    const RecsModuleURI route({.withModuleId = "because-you-watched",
                               .userId = visit.user->profile(),
                               .accountId = visit.user->account(),
                               .subprofileId = visit.user->profile(),
                               .limit = 12,
                               .httpMethod = "POST",
                               .exclude = std::vector<RecsModuleContext>(),
                               .include = std::vector<RecsModuleContext>(),
                               .andModuleContext = std::optional<RecsModuleContext>()});
    auto resource = Resource<RecommendationModule>::make({.with = route}, visit.user->recommendations());
    const auto module = co_await load(std::move(resource), visit.options());
    if (!module) co_return failedBlock(module.error());
    std::vector<std::string> ids;
    for (const Recommendation& item : module->recommendations) {
        // What is not of this catalogue cannot be opened here.
        const bool isShow = item.contentSource() == RecsContentSource::lumeno &&
                            item.contentType() == RecsContentType::program;
        if (isShow) ids.push_back(item.contentId().value_or(""));
    }
    co_return co_await showsRow(std::move(visit), std::move(ids),
                                "Watch something, and more like it comes here.");
}

Task<Answer> savePart(Visit visit) {
    const auto id = numberIn(visit.request.queried("id"));
    if (!id) co_return problemPage(400);
    if (!visit.user->account()) {
        co_return blockAnswer(
            html(R"(<a class="button" href="/me" data-action="save">Sign in to save it</a>)"));
    }
    const auto saved = co_await run(visit.user->client().listWatchlistShowIds(), visit.options());
    if (!saved) co_return failedBlock(saved.error());
    bool isSaved = false;
    for (const SavedData& record : *saved) isSaved = isSaved || record.key == std::to_string(*id);
    co_return blockAnswer(html(
        R"(<form method="post" action="/save" data-swap><input type="hidden" name="show" value="{}">)"
        R"(<input type="hidden" name="on" value="{}"><button class="button" data-action="save")"
        R"( aria-pressed="{}">{}</button></form>)",
        *id, isSaved ? "0" : "1", isSaved ? "true" : "false", isSaved ? "On my list" : "Save to my list"));
}

Task<Answer> save(Visit visit) {
    const auto id = numberIn(visit.request.posted("show"));
    if (!id) co_return problemPage(400);
    const UserClient& client = visit.user->client();
    // Whether it worked is seen on the button, which asks anew.
    if (visit.request.posted("on") == "1") {
        auto adding = client.addWatchlistShow({.showId = *id});
        static_cast<void>(co_await run(std::move(adding), visit.options()));
    } else {
        auto deleting = client.deleteShow({.showId = *id});
        static_cast<void>(co_await run(std::move(deleting), visit.options()));
    }
    co_return seeOther("/me");
}

Task<Answer> keepProgress(Visit visit) {
    const auto show = numberIn(visit.request.posted("show"));
    const auto position = numberIn(visit.request.posted("position"));
    const std::string video = visit.request.posted("video");
    if (!show || !position || !isAccountName(video)) co_return problemPage(400);
    if (visit.user->account()) {
        auto keeping =
            visit.user->client().updateVideoProgress({.showId = *show,
                                                      .houseNumber = video,
                                                      .progress = *position,
                                                      .isDone = visit.request.posted("done") == "1"});
        static_cast<void>(co_await run(std::move(keeping), visit.service.options({})));
    }
    co_return Answer{.status = 204};
}

}  // namespace living_room
