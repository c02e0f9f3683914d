#pragma once

#include <string>

namespace VanticRestKit::sample {

/// A picture as SVG: the title on a background derived from its letters, so that each title has its own, stable one.
/// `shape` is one of "landscape", "portrait", "portrait-titled", "episode-portrait", "character-1", "character-2",
/// "square", "logo", "banner" and "banner-small"; an empty string for any other.
std::string drawnPicture(const std::string& title, const std::string& shape);

}  // namespace VanticRestKit::sample
