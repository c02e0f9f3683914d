#pragma once

/// \file
/// `RecsModuleContext`: names one piece of content.

#include <VanticRestKit/recs/RecsContentSource.h>
#include <VanticRestKit/recs/RecsContentType.h>

#include <string>
#include <utility>

namespace VanticRestKit {

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
