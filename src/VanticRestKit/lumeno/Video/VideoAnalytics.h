#pragma once

/// \file
/// `VideoAnalytics`: values that a host reports when it plays a video.

#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <optional>
#include <string>

namespace VanticRestKit {

/// Values that a host reports when it plays a video. The library does not use them.
///
/// Any JSON object can be decoded. A value of another JSON type than expected is empty.
struct VideoAnalytics {
    /// Key `oztam.publisherId`; empty if absent or not a string.
    std::optional<std::string> oztamPublisherId{};
    /// Key `oztam.mediaId`; empty if absent or not a string.
    std::optional<std::string> oztamMediaId{};
    /// Key `oztam.classification`; empty if absent or not a string.
    std::optional<std::string> oztamClassification{};
    /// Key `oztam.seriesName`; empty if absent or not a string.
    std::optional<std::string> oztamSeriesName{};
    /// Key `oztam.seriesId`; empty if absent or not a string.
    std::optional<std::string> oztamSeriesId{};
    /// Key `oztam.episodeName`; empty if absent or not a string.
    std::optional<std::string> oztamEpisodeName{};
    /// Key `oztam.episodeId`; empty if absent or not a string.
    std::optional<std::string> oztamEpisodeId{};
    /// Key `oztam.channel`; empty if absent or not a string.
    std::optional<std::string> oztamChannel{};
    /// Key `oztam.url`; empty if absent or not a string.
    std::optional<std::string> oztamUrl{};
    /// In seconds. The only number in this record.
    std::optional<std::uint64_t> oztamMediaDuration{};
    /// Key `oztam.mediaType`; empty if absent or not a string.
    std::optional<std::string> oztamMediaType{};
    /// Key `dataLayer.d_id`; empty if absent or not a string.
    std::optional<std::string> dataLayerId{};
    /// Key `dataLayer.d_contentType`; empty if absent or not a string.
    std::optional<std::string> dataLayerContentType{};
    /// Key `dataLayer.d_contentSource`; empty if absent or not a string.
    std::optional<std::string> dataLayerContentSource{};
    /// Key `dataLayer.d_uri`; empty if absent or not a string.
    std::optional<std::string> dataLayerUri{};
    /// Key `dataLayer.d_program_name`; empty if absent or not a string.
    std::optional<std::string> dataLayerProgramName{};
    /// Key `dataLayer.d_program_id`; empty if absent or not a string.
    std::optional<std::string> dataLayerProgramId{};
    /// Key `dataLayer.d_series_name`; empty if absent or not a string.
    std::optional<std::string> dataLayerdSeriesName{};
    /// Key `dataLayer.d_series_id`; empty if absent or not a string.
    std::optional<std::string> dataLayerSeriesId{};
    /// Key `dataLayer.d_episode_name`; empty if absent or not a string.
    std::optional<std::string> dataLayerEpisodeName{};
    /// Key `dataLayer.d_episode_id`; empty if absent or not a string.
    std::optional<std::string> dataLayerEpisodeId{};
    /// Key `dataLayer.d_language`; empty if absent or not a string.
    std::optional<std::string> dataLayerLanguage{};
    /// Key `dataLayer.d_canonicalUrl`; empty if absent or not a string.
    std::optional<std::string> dataLayerCanonicalUrl{};
    /// A single string, not a list.
    std::optional<std::string> dataLayerCategories{};
    /// Key `dataLayer.d_classification`; empty if absent or not a string.
    std::optional<std::string> dataLayerClassification{};
    /// A string, unlike `oztamMediaDuration`.
    std::optional<std::string> dataLayerMediaDuration{};
    /// A string, not a boolean.
    std::optional<std::string> dataLayerCaptionAvailable{};
    /// Key `dataLayer.d_streamType`; empty if absent or not a string.
    std::optional<std::string> dataLayerStreamType{};
    /// Key `dataLayer.d_videoType`; empty if absent or not a string.
    std::optional<std::string> dataLayerVideoType{};
    /// Key `dataLayer.d_title_title`; empty if absent or not a string.
    std::optional<std::string> dataLayerTitleTitle{};

    friend bool operator==(const VideoAnalytics&, const VideoAnalytics&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<VideoAnalytics>();

}  // namespace VanticRestKit
