#pragma once

#include "catalogue/Screens.h"
#include "server/Exchange.h"

namespace VanticRestKit::sample {

JSON screenJSON(const Screen& screen);

/// A collection; its first show or video once more as the item to highlight, where asked for.
JSON collectionJSON(const Collection& collection, bool withHighlightItem);

}  // namespace VanticRestKit::sample
