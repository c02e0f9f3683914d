#pragma once

#include "catalogue/Catalogue.h"
#include "server/Exchange.h"

namespace VanticRestKit::sample {

/// What is embedded in a show. Null and false mean nothing.
struct ShowExtras {
    const Video* highlightVideo = nullptr;
    const Series* selectedSeries = nullptr;
    bool seriesList = false;
};

JSON showJSON(const Show& show, const ShowExtras& extras = {});

/// A series, optionally with its episodes and its show's trailers.
JSON seriesJSON(const Series& series, bool withEpisodes);

/// Whether the episodes of a show have captions.
bool hasCaptions(const Show& show);

}  // namespace VanticRestKit::sample
