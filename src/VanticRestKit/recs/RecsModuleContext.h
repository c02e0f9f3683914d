#pragma once

/// \file
/// `RecsModuleContext`: names one piece of content, by its `RecsContentSource` and `RecsContentType`.

#include <VanticRestKit/platform/json/RawText.h>

#include <string>
#include <utility>

namespace VanticRestKit {

/// Which catalogue a piece of content is of.
enum class RecsContentSource { lumeno, coremedia };

/// The raw texts of `RecsContentSource`.
template <>
struct RawTexts<RecsContentSource> {
    /// The cases with their names and raw texts, in case order.
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

/// The raw texts of `RecsContentType`.
template <>
struct RawTexts<RecsContentType> {
    /// The cases with their names and raw texts, in case order.
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
    /// Where the content comes from.
    RecsContentSource source{};
    /// What kind of content it is.
    RecsContentType contentType{};
    /// Its id within the source.
    std::string contentId{};

    /// "source://type/id", nothing escaped.
    std::string recContextURI() const {
        return std::string(rawValue(source)) + "://" + std::string(rawValue(contentType)) + "/" + contentId;
    }

    /// A programme of CoreMedia.
    static RecsModuleContext withCoreMediaProgramId(std::string id) {
        return {RecsContentSource::coremedia, RecsContentType::program, std::move(id)};
    }
    /// An article is named as audio.
    static RecsModuleContext withArticleId(std::string id) {
        return {RecsContentSource::coremedia, RecsContentType::audio, std::move(id)};
    }
    /// A show of this service.
    static RecsModuleContext withShowId(std::string id) {
        return {RecsContentSource::lumeno, RecsContentType::program, std::move(id)};
    }
    /// An audio episode of CoreMedia.
    static RecsModuleContext withAudioEpisodeId(std::string id) {
        return {RecsContentSource::coremedia, RecsContentType::audioepisode, std::move(id)};
    }
    /// An audio segment of CoreMedia.
    static RecsModuleContext withAudioSegmentId(std::string id) {
        return {RecsContentSource::coremedia, RecsContentType::audiosegment, std::move(id)};
    }

    friend bool operator==(const RecsModuleContext&, const RecsModuleContext&) = default;
};

}  // namespace VanticRestKit
