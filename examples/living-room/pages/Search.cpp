// Search as you type. When the next letter comes, the browser drops the request for the letters so far; the server
// notices, and the load ends with it.

#include "Parts.h"

#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Search/SearchResults.h>

namespace living_room {

using namespace VanticRestKit;

namespace {

constexpr std::size_t maxLetters = 100;

}  // namespace

Task<Answer> searchPage(Visit visit) {
    const std::string word = visit.request.queried("q");
    const Html content = html(
        R"(<form id="search" class="searching" role="search" action="/search"><label for="word">Search for shows</label>)"
        R"(<h1 class="unseen">Search</h1><input id="word" name="q" type="search" value="{}" maxlength="100")"
        R"( placeholder="A title, a place, a mood" autocomplete="off" spellcheck="false" autofocus></form>)"
        R"(<div id="results" data-name="Results" data-src="{}" data-state="loading" aria-busy="true" aria-live="polite"></div>)",
        word, "/search/results?q=" + percentEncoded(word));
    co_return pageAnswer(pageAround(visit, "search", "Search", content));
}

Task<Answer> searchResults(Visit visit) {
    const std::string word = visit.request.queried("q").substr(0, maxLetters);
    if (word.find_first_not_of(' ') == std::string::npos) {
        co_return blockAnswer(emptyMarkup("Type what you are in the mood for."), "empty");
    }
    auto resource = Endpoint::Search({.keyword = word}, visit.catalogue());
    const auto results = co_await load(std::move(resource), visit.options());
    if (!results) co_return failedBlock(results.error());
    if (results->items.empty()) {
        co_return blockAnswer(html(R"(<p class="empty">Nothing was found for “{}”.</p>)", word), "empty");
    }
    std::vector<Html> tiles;
    for (const Show& show : results->items)
        tiles.push_back(tileMarkup(tileOf(CollectionItem(show), visit.service)));
    co_return blockAnswer(html(R"(<div class="grid">{}</div>)", tiles));
}

}  // namespace living_room
