#pragma once

#include <VanticRestKit/lumeno/MixedCollection/MixedCollection.h>

#include <string>

namespace demo {

/// "Show", "Series" or "Video".
const char* kindOf(const VanticRestKit::CollectionItem& item);

/// The title of an item; that of a series or an episode with its show in front.
std::string nameOf(const VanticRestKit::CollectionItem& item);

/// The names of all items of a collection.
void printRow(const VanticRestKit::MixedCollection& row);

}  // namespace demo
