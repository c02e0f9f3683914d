#include "Chapters.h"
#include "ItemPrinting.h"
#include "Loading.h"
#include "Printing.h"

#include <VanticRestKit/lumeno/Categories/Category.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/platform/json/DecodingError.h>
#include <VanticRestKit/platform/json/RawText.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

namespace demo {

using namespace VanticRestKit;

namespace {

constexpr const char* path = "v2/home";

std::vector<std::string> namesOf(const MixedCollection& row) {
    std::vector<std::string> names;
    for (const auto& item : row.items()) names.push_back(std::string(kindOf(item)) + " " + nameOf(item));
    return names;
}

/// Those of `names` that are not among `others`; how many is added to `count`.
std::vector<std::string> missing(const std::vector<std::string>& names,
                                 const std::vector<std::string>& others, std::size_t& count) {
    std::vector<std::string> found;
    std::copy_if(names.begin(), names.end(), std::back_inserter(found), [&](const std::string& name) {
        return std::find(others.begin(), others.end(), name) == others.end();
    });
    count += found.size();
    if (found.empty()) found.emplace_back("-");
    return found;
}

std::string textOf(const CodingPath& place) {
    std::string text;
    for (const auto& step : place) {
        text += "/" + (step.key() != nullptr ? *step.key() : std::to_string(*step.index()));
    }
    return text;
}

/// One broken element costs itself, but a row without a title costs the screen.
bool showBrokenRow(const Stage& stage) {
    printHeading("A home screen in which a row has lost its title");
    const bool agreed =
        stage.service.addFault(path, R"("fault":"null","at":"/_embedded/collections/4/title")");
    const auto resource = Endpoint::Home(stage.context);
    if (!resource || !agreed) return false;
    const auto outcome = loaded(*resource);
    if (outcome) return false;
    printField("to show", outcome.error().localizedDescription());
    const auto& cause = outcome.error().underlyingError();
    const auto* error = cause ? cause->as<DecodingError>() : nullptr;
    if (error == nullptr) return false;
    printField("in detail", nameOf(error->kind()));
    printField("at", textOf(error->codingPath()));
    return true;
}

}  // namespace

bool showOddHomeScreen(const Stage& stage) {
    printHeading("A home screen in which every row has unknown entities and broken elements");
    const auto plain = fetched(Endpoint::Home(stage.context));
    const bool agreed = stage.service.addFault(path, R"("fault":"oddities")");
    const auto odd = fetched(Endpoint::Home(stage.context));
    if (!agreed || !plain || !odd || odd->collections.size() != plain->collections.size()) return false;

    printField("each row got", "an unknown entity that looks like a series, and one that does not");
    printField("", "a null, a number, a text and a list where items should be");
    printField("", "a first show whose id is a string and whose kind and theme are unknown");
    printField("", "a last video without links, and an unknown type");
    std::size_t lost = 0, cameIn = 0, kept = 0;
    for (std::size_t i = 0; i < plain->collections.size(); ++i) {
        const auto before = namesOf(plain->collections[i]);
        const auto after = namesOf(odd->collections[i]);
        printField(plain->collections[i].title.c_str(),
                   std::to_string(before.size()) + " items became " + std::to_string(after.size()));
        printList("  lost", missing(before, after, lost));
        printList("  came in", missing(after, before, cameIn));
        kept += after.size();
    }
    printField("in all", std::to_string(kept - cameIn) + " items survive, " + std::to_string(lost) +
                             " without links are gone, " + std::to_string(cameIn) +
                             " unknown ones look like a series");
    printField("type of a row", std::string(rawValue(odd->collections.front().type)));
    return showBrokenRow(stage) && cameIn == 8 && lost > 0;
}

}  // namespace demo
