#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "server/Router.h"

namespace VanticRestKit::sample {

/// A file of data/, compiled into the program.
struct EmbeddedFile {
    std::string_view name;
    std::string_view bytes;
};

/// All of them; written by the build.
const std::vector<EmbeddedFile>& embeddedFiles();

/// The test pattern in two qualities as HLS, under "hls/":
/// - `main.m3u8` offers both, 20 seconds long;
/// - `NAME-LEVEL.m3u8` offers one, for as long as the video of the house number NAME lasts: the small one for the level
///   `sd-low`, else the large one.
/// Captions in WebVTT, made from a video's title, are under "captions/NAME.vtt".
std::vector<Route> streamRoutes();

/// Has an answer of the catalogue name this service instead of the media host, so that a browser can play what it names.
void serveStreamsFrom(const std::string& origin, JSON& value);

}  // namespace VanticRestKit::sample
