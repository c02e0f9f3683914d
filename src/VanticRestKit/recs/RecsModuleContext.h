#pragma once

/// \file
/// `RecsModuleContext`: identifies a piece of content, by its `RecsContentSource` and `RecsContentType`.

#include <VanticRestKit/platform/json/RawText.h>

#include <string>
#include <utility>

namespace VanticRestKit {

/// The catalogue that contains a piece of content.
enum class RecsContentSource { lumeno, coremedia };

/// The raw strings of `RecsContentSource`.
template <>
struct RawTexts<RecsContentSource> {
    /// The cases with their names and raw strings, in declaration order.
    static constexpr RawCase<RecsContentSource> cases[] = {
        {RecsContentSource::lumeno, "lumeno", "lumeno"},
        {RecsContentSource::coremedia, "coremedia", "coremedia"},
    };
};

/// The kind of a piece of content.
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

/// The raw strings of `RecsContentType`.
template <>
struct RawTexts<RecsContentType> {
    /// The cases with their names and raw strings, in declaration order.
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

/// Identifies a piece of content, in the video catalogue or outside it.
struct RecsModuleContext {
    /// The catalogue.
    RecsContentSource source{};
    /// The kind of content.
    RecsContentType contentType{};
    /// The id in the catalogue.
    std::string contentId{};

    /// "source://type/id", without escaping.
    std::string recContextURI() const {
        return std::string(rawValue(source)) + "://" + std::string(rawValue(contentType)) + "/" + contentId;
    }

    /// A programme of CoreMedia.
    static RecsModuleContext withCoreMediaProgramId(std::string id) {
        return {RecsContentSource::coremedia, RecsContentType::program, std::move(id)};
    }
    /// An article; it is identified as audio.
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
