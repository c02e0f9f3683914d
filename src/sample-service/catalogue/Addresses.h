#pragma once

#include <string>

#include "catalogue/Catalogue.h"
#include "server/Exchange.h"

namespace VanticRestKit::sample {

// Hrefs are paths below "v2", with a leading slash.
std::string hrefOf(const Show& show);
std::string hrefOf(const Series& series);
std::string hrefOf(const Video& video);

/// A link as entities hold it: {"href": ...}.
JSON linkTo(const std::string& href);

/// Where the service draws a picture: pictureOf("show/harbour-lights", "portrait").
/// The kinds of names are "show", "series", "video", "collection", "channel", "category" and "avatar".
std::string pictureOf(const std::string& name, const std::string& shape);

/// The picture addresses of a show or video by shape, without `thumbnail`.
JSON thumbnailsOf(const std::string& name, const std::string& category);

/// The addresses of streams and captions on a media host that does not exist.
std::string mediaAddress(const std::string& path);

}  // namespace VanticRestKit::sample
