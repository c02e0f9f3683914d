#pragma once

#include "catalogue/Screens.h"
#include "server/Exchange.h"

namespace VanticRestKit::sample {

JSON screenJSON(const Screen& screen);

/// A collection, optionally with its first show or video repeated as the item to highlight.
JSON collectionJSON(const Collection& collection, bool withHighlightItem);

}  // namespace VanticRestKit::sample
