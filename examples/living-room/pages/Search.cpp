// Search as you type. When the next letter comes, the browser drops the request for the letters so far; the server
// notices, and the load ends with it.

#include "Pages.h"

namespace living_room {

namespace {

constexpr std::size_t maxWordBytes = 400;

Task<Answer> page(Visit visit) {
    const std::string word = visit.queried("q");
    const Value::Object values{{"word", word}, {"address", "/search/results?q=" + percentEncoded(word)}};
    co_return screenAnswer(visit, "search", "Search", values);
}

Task<Answer> results(Visit visit) {
    const std::string word = visit.queried("q");
    if (word.find_first_not_of(' ') == std::string::npos)
        co_return emptyPart("Type what you are in the mood for.");
    if (word.size() > maxWordBytes) co_return emptyPart("No show has a title as long as that.");
    auto resource = Endpoint::Search({.keyword = word}, visit.catalogue());
    const auto found = co_await load(std::move(resource), visit.options());
    if (!found) co_return failedPart(found.error());
    const std::vector<CollectionItem> shows(found->items.begin(), found->items.end());
    const std::string sentence = "Nothing was found for “" + word + "”.";
    co_return tilesAnswer("grid", tilesOf(shows, visit.service), sentence.c_str());
}

constexpr Route routes[] = {{"GET", "/search", page}, {"GET", "/search/results", results}};

}  // namespace

const std::span<const Route> searchRoutes(routes);

}  // namespace living_room
