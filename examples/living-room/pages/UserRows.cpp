// What a user has saved, watched and may like, as rows; and the operations that change it.

#include "Pages.h"

#include <algorithm>
#include <charconv>

namespace living_room {

namespace {

constexpr std::uint64_t maxRecords = 20;

Answer signInFirst(const char* why) {
    return partAnswer("empty", Value::Object{{"signIn", true}, {"sentence", why}}, "empty");
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
    if (!records) co_return failedPart(records.error());
    std::vector<std::string> houseNumbers;
    for (const HistoryData& record : *records) houseNumbers.push_back(record.key);
    if (houseNumbers.empty()) co_return emptyPart(sentenceIfNone);
    auto resource = Endpoint::Videos({.houseNumbers = houseNumbers}, visit.catalogue());
    const auto list = co_await load(std::move(resource), visit.options());
    if (!list) co_return failedPart(list.error());
    co_return tilesAnswer("tiles", tilesOf(list->videos, *records, visit.service), sentenceIfNone);
}

/// The shows of these ids as tiles.
Task<Answer> showsRow(Visit visit, std::vector<std::string> ids, const char* sentenceIfNone) {
    if (ids.empty()) co_return emptyPart(sentenceIfNone);
    auto resource = Endpoint::Shows({.showSlugsOrIds = std::move(ids)}, visit.catalogue());
    const auto shows = co_await load(std::move(resource), visit.options());
    if (!shows) co_return failedPart(shows.error());
    const std::vector<CollectionItem> items(shows->begin(), shows->end());
    co_return tilesAnswer("tiles", tilesOf(items, visit.service), sentenceIfNone);
}

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
    if (!saved) co_return failedPart(saved.error());
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
    if (!module) co_return failedPart(module.error());
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

Task<Answer> saveButton(Visit visit) {
    const auto id = numberIn(visit.queried("id"));
    if (!id) co_return problemPage(400);
    if (!visit.user->account()) co_return partAnswer("save", {});
    const auto saved = co_await run(visit.user->client().listWatchlistShowIds(), visit.options());
    if (!saved) co_return failedPart(saved.error());
    const auto isShow = [&](const SavedData& record) { return record.key == std::to_string(*id); };
    const bool isSaved = std::any_of(saved->begin(), saved->end(), isShow);
    const Value values = Value::Object{{"show", *id}, {"on", isSaved ? 0 : 1}, {"isSaved", isSaved}};
    co_return partAnswer("save", values);
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
    co_return partAnswer("", {});
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
    co_return partAnswer("", {});
}

constexpr Route routes[] = {
    {"GET", "/continue", continueRow},  {"GET", "/me/list", myList},
    {"GET", "/me/history", history},    {"GET", "/me/recommendations", recommendations},
    {"GET", "/save", saveButton},       {"POST", "/save", save},
    {"POST", "/progress", keepProgress}};

}  // namespace

const std::span<const Route> userRoutes(routes);

}  // namespace living_room
