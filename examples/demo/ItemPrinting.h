#pragma once

#include <VanticRestKit/lumeno/MixedCollection/MixedCollection.h>

#include <string>

namespace demo {

/// "Show", "Series" or "Video".
const char* kindOf(const VanticRestKit::CollectionItem& item);

/// The title of an item. For a series or an episode, the title of its show comes first.
std::string nameOf(const VanticRestKit::CollectionItem& item);

/// The names of all items of a collection.
void printRow(const VanticRestKit::MixedCollection& row);

}  // namespace demo
