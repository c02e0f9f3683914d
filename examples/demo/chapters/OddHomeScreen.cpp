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

/// The elements of `names` that are not in `others`. Adds their number to `count`.
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

/// A broken element is only omitted itself, but a row without a title makes the whole screen fail.
bool showBrokenRow(const Stage& stage) {
    printHeading("A home screen with a row without a title");
    const bool agreed =
        stage.service.addFault(path, R"("fault":"null","at":"/_embedded/collections/4/title")");
    const auto resource = Endpoint::Home(stage.context);
    if (!resource || !agreed) return false;
    const auto outcome = loaded(*resource);
    if (outcome) return false;
    printField("message", outcome.error().localizedDescription());
    const auto& cause = outcome.error().underlyingError();
    const auto* error = cause ? cause->as<DecodingError>() : nullptr;
    if (error == nullptr) return false;
    printField("details", nameOf(error->kind()));
    printField("at", textOf(error->codingPath()));
    return true;
}

}  // namespace

bool showOddHomeScreen(const Stage& stage) {
    printHeading("A home screen with unknown entities and broken elements in every row");
    const auto plain = fetched(Endpoint::Home(stage.context));
    const bool agreed = stage.service.addFault(path, R"("fault":"oddities")");
    const auto odd = fetched(Endpoint::Home(stage.context));
    if (!agreed || !plain || !odd || odd->collections.size() != plain->collections.size()) return false;

    printField("each row has", "an unknown entity with the fields of a series, and one without");
    printField("", "null, a number, a string and a list as items");
    printField("", "a first show with a string as id, and with an unknown kind and theme");
    printField("", "a last video without links, and an unknown type");
    std::size_t omitted = 0, added = 0, kept = 0;
    for (std::size_t i = 0; i < plain->collections.size(); ++i) {
        const auto before = namesOf(plain->collections[i]);
        const auto after = namesOf(odd->collections[i]);
        printField(plain->collections[i].title.c_str(),
                   std::to_string(before.size()) + " items became " + std::to_string(after.size()));
        printList("  omitted", missing(before, after, omitted));
        printList("  added", missing(after, before, added));
        kept += after.size();
    }
    printField("in all", std::to_string(kept - added) + " items are kept, " + std::to_string(omitted) +
                             " without links are omitted, " + std::to_string(added) +
                             " unknown ones are read as series");
    printField("type of a row", std::string(rawValue(odd->collections.front().type)));
    return showBrokenRow(stage) && added == 8 && omitted > 0;
}

}  // namespace demo
