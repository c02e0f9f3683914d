#pragma once

#include <string>

#include "catalogue/Catalogue.h"
#include "server/Exchange.h"

namespace VanticRestKit::sample {

// Hrefs are paths below "v2", with a leading slash.
std::string hrefOf(const Show& show);
std::string hrefOf(const Series& series);
std::string hrefOf(const Video& video);

/// A link as in entities: {"href": ...}.
JSON linkTo(const std::string& href);

/// The URL of an image: pictureOf("show/harbour-lights", "portrait"). The kinds of names are "show", "series", "video",
/// "collection", "channel", "category" and "avatar".
std::string pictureOf(const std::string& name, const std::string& shape);

/// The image URLs of a show or video by shape, without `thumbnail`.
JSON thumbnailsOf(const std::string& name, const std::string& category);

/// The URL of a stream or captions, on a media host that does not exist.
std::string mediaAddress(const std::string& path);

}  // namespace VanticRestKit::sample
