#pragma once

#include "catalogue/Catalogue.h"
#include "server/Exchange.h"

namespace VanticRestKit::sample {

/// A video in the service's hypertext form, with its playlist embedded.
JSON videoJSON(const Video& video);

/// A video as an element of a list: without its playlist and analytics.
JSON videoSummaryJSON(const Video& video);

/// The streams, captions and warnings of a video, in the order in which they are played.
JSON playlistJSON(const Video& video);

/// The metadata of a video for the two measurement services.
JSON analyticsJSON(const Video& video);

/// The links of a show, and of its videos, to its category.
JSON categoryLinksOf(const Show& show);

/// The length of a video in seconds; 0 for a live one.
unsigned durationOf(const Video& video);

}  // namespace VanticRestKit::sample
