#include "Chapters.h"
#include "Loading.h"
#include "Printing.h"

#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Search/SearchResults.h>

#include <optional>
#include <string>
#include <vector>

namespace demo {

using namespace VanticRestKit;

namespace {

/// The number of shows found; empty if the search failed.
std::optional<std::size_t> search(const std::string& keyword, const std::optional<std::string>& channel,
                                  const Context& context) {
    const auto results = fetched(Endpoint::Search({.keyword = keyword, .channel = channel}, context));
    if (!results) return std::nullopt;
    std::vector<std::string> titles;
    for (const auto& show : results->items) titles.push_back(show.title.value_or("Untitled"));
    if (titles.empty()) titles.emplace_back("(no shows)");
    printList(results->keyword.value_or("") + (channel ? " (" + *channel + ")" : ""), titles);
    return results->items.size();
}

}  // namespace

bool showSearch(const Stage& stage) {
    printHeading("A search");
    const auto everywhere = search("weather", std::nullopt, stage.context);
    const auto onOneChannel = search("sea", "vantic-two", stage.context);
    const auto nowhere = search("zeppelin", std::nullopt, stage.context);
    return everywhere > 0U && onOneChannel > 0U && nowhere == 0U;
}

}  // namespace demo
