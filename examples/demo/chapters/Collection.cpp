#include "Chapters.h"
#include "ItemPrinting.h"
#include "Loading.h"
#include "Printing.h"

#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/MixedCollection/MixedCollection.h>

#include <cstdio>

namespace demo {

using namespace VanticRestKit;

bool showCollection(const Stage& stage) {
    printHeading("A collection, whose items share one interface");
    const auto collection =
        fetched(Endpoint::Collection({.collectionId = "1005", .embedHighlightItem = true}, stage.context));
    if (!collection) return false;
    printField("title", collection->title);
    printField("about", collection->description.value_or(""));
    if (collection->highlightItem) printField("highlight item", nameOf(*collection->highlightItem));
    for (const auto& item : collection->items()) {
        const auto episodes = item.episodeCount();
        const std::string length =
            episodes ? std::to_string(*episodes) + " episodes" : item.displayDuration().value_or("");
        std::printf("  %s %s %s %s %s\n", padded(kindOf(item), 8).c_str(), padded(nameOf(item), 36).c_str(),
                    padded(item.channelTitle().value_or(""), 12).c_str(),
                    padded(item.classification().value_or(""), 6).c_str(), length.c_str());
        printField("", item.thumbnail().value_or(""));
    }
    return collection->items().size() == 5;
}

}  // namespace demo
