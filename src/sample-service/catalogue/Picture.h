#pragma once

#include <string>

namespace VanticRestKit::sample {

/// A picture as SVG: the title on a ground that follows from its letters, so that each title has its own and
/// keeps it. `shape` is one of "landscape", "portrait", "portrait-titled", "episode-portrait", "character-1",
/// "character-2", "square", "logo", "banner" and "banner-small"; no text for any other.
std::string drawnPicture(const std::string& title, const std::string& shape);

}  // namespace VanticRestKit::sample
