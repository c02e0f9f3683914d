#include "ItemPrinting.h"

#include "Printing.h"

#include <VanticRestKit/lumeno/Series/Series.h>
#include <VanticRestKit/lumeno/Show/Show.h>
#include <VanticRestKit/lumeno/Video/Video.h>

namespace demo {

using namespace VanticRestKit;

const char* kindOf(const CollectionItem& item) {
    if (item.as<Show>() != nullptr) return "Show";
    return item.as<Series>() != nullptr ? "Series" : "Video";
}

std::string nameOf(const CollectionItem& item) {
    const std::string title = item.title().value_or("Untitled");
    const auto show = item.showTitle();
    return !show || *show == title ? title : *show + ": " + title;
}

void printRow(const MixedCollection& row) {
    std::vector<std::string> names;
    for (const auto& item : row.items()) names.push_back(nameOf(item));
    printList(row.title, names);
}

}  // namespace demo
