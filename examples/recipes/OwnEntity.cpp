// The host's own entity: its mapping table, its route, and loading it.
//   recipe_own_entity BASE-URL

#include "Host.h"

#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/platform/json/Table.h>

#include <chrono>
#include <cstdio>
#include <optional>
#include <string>

using namespace VanticRestKit;
using namespace std::chrono_literals;

/// The data of a show for a small card on the screen.
struct Card {
    std::string title{};
    std::optional<std::string> about{};
    std::string href{};
};

template <>
const TypePlan& VanticRestKit::planOf<Card>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Card>(
        required<&Card::title>("title"),
        lenient<&Card::about>("description"),
        requiredObject("_links",
            requiredObject("self",
                required<&Card::href>("href"))));
    // clang-format on
    return plan;
}

/// The route to a card.
struct CardURI {
    std::string show;
    std::string path() const { return "/v2/show/" + show; }
};

int main(int argc, char** argv) {
    const auto host = recipes::Host::of(argc, argv);
    if (!host) return 2;
    const auto card = Resource<Card>::make({.with = CardURI{"harbour-lights"}}, *host);
    if (!card) return 1;
    const Result<Card, LoaderError> loaded = card->wait({.deadline = 5s});
    if (!loaded) return 1;
    std::printf("%s: %s (%s)\n", loaded->title.c_str(), loaded->about.value_or("").c_str(),
                loaded->href.c_str());
    return 0;
}
