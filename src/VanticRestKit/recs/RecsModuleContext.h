#pragma once

/// \file
/// `RecsModuleContext`: names one piece of content, by its `RecsContentSource` and `RecsContentType`.

#include <VanticRestKit/platform/json/RawText.h>

#include <string>
#include <utility>

namespace VanticRestKit {

/// Which catalogue a piece of content is of.
enum class RecsContentSource { lumeno, coremedia };

template <>
struct RawTexts<RecsContentSource> {
    static constexpr RawCase<RecsContentSource> cases[] = {
        {RecsContentSource::lumeno, "lumeno", "lumeno"},
        {RecsContentSource::coremedia, "coremedia", "coremedia"},
    };
};

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

/// Names one piece of content, also of outside the video catalogue.
struct RecsModuleContext {
    RecsContentSource source{};
    RecsContentType contentType{};
    std::string contentId{};

    /// "source://type/id", nothing escaped.
    std::string recContextURI() const {
        return std::string(rawValue(source)) + "://" + std::string(rawValue(contentType)) + "/" + contentId;
    }

    static RecsModuleContext withCoreMediaProgramId(std::string id) {
        return {RecsContentSource::coremedia, RecsContentType::program, std::move(id)};
    }
    /// An article is named as audio.
    static RecsModuleContext withArticleId(std::string id) {
        return {RecsContentSource::coremedia, RecsContentType::audio, std::move(id)};
    }
    static RecsModuleContext withShowId(std::string id) {
        return {RecsContentSource::lumeno, RecsContentType::program, std::move(id)};
    }
    static RecsModuleContext withAudioEpisodeId(std::string id) {
        return {RecsContentSource::coremedia, RecsContentType::audioepisode, std::move(id)};
    }
    static RecsModuleContext withAudioSegmentId(std::string id) {
        return {RecsContentSource::coremedia, RecsContentType::audiosegment, std::move(id)};
    }

    friend bool operator==(const RecsModuleContext&, const RecsModuleContext&) = default;
};

}  // namespace VanticRestKit
