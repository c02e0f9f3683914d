#pragma once

/// \file
/// `RecsContentType`: what a piece of content is.

#include <VanticRestKit/platform/json/RawText.h>

namespace VanticRestKit {

/// What a piece of content is.
enum class RecsContentType {
    audio,
    audioepisode,
    audiosegment,
    program,
    recipe,
    video,
    videoepisode,
    videosegment,
    article
};

template <>
struct RawTexts<RecsContentType> {
    static constexpr RawCase<RecsContentType> cases[] = {
        {RecsContentType::audio, "audio", "audio"},
        {RecsContentType::audioepisode, "audioepisode", "audioepisode"},
        {RecsContentType::audiosegment, "audiosegment", "audiosegment"},
        {RecsContentType::program, "program", "program"},
        {RecsContentType::recipe, "recipe", "recipe"},
        {RecsContentType::video, "video", "video"},
        {RecsContentType::videoepisode, "videoepisode", "videoepisode"},
        {RecsContentType::videosegment, "videosegment", "videosegment"},
        {RecsContentType::article, "article", "article"},
    };
};

}  // namespace VanticRestKit
