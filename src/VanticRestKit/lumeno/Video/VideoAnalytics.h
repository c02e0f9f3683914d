#pragma once

/// \file
/// `VideoAnalytics`: values that a host reports when it plays a video.

#include <VanticRestKit/platform/json/PlanOf.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <optional>
#include <string>

namespace VanticRestKit {

/// Values that a host reports when it plays a video. The library carries them and does nothing else with them.
///
/// Any JSON object decodes into one. Each value is of one JSON type, and one of another type is empty.
struct VideoAnalytics {
    std::optional<std::string> oztamPublisherId{};
    std::optional<std::string> oztamMediaId{};
    std::optional<std::string> oztamClassification{};
    std::optional<std::string> oztamSeriesName{};
    std::optional<std::string> oztamSeriesId{};
    std::optional<std::string> oztamEpisodeName{};
    std::optional<std::string> oztamEpisodeId{};
    std::optional<std::string> oztamChannel{};
    std::optional<std::string> oztamUrl{};
    /// In seconds: the one number of the record.
    std::optional<std::uint64_t> oztamMediaDuration{};
    std::optional<std::string> oztamMediaType{};
    std::optional<std::string> dataLayerId{};
    std::optional<std::string> dataLayerContentType{};
    std::optional<std::string> dataLayerContentSource{};
    std::optional<std::string> dataLayerUri{};
    std::optional<std::string> dataLayerProgramName{};
    std::optional<std::string> dataLayerProgramId{};
    std::optional<std::string> dataLayerdSeriesName{};
    std::optional<std::string> dataLayerSeriesId{};
    std::optional<std::string> dataLayerEpisodeName{};
    std::optional<std::string> dataLayerEpisodeId{};
    std::optional<std::string> dataLayerLanguage{};
    std::optional<std::string> dataLayerCanonicalUrl{};
    /// One text, not a list.
    std::optional<std::string> dataLayerCategories{};
    std::optional<std::string> dataLayerClassification{};
    /// A text, unlike `oztamMediaDuration`.
    std::optional<std::string> dataLayerMediaDuration{};
    /// A text, though it reads like a flag.
    std::optional<std::string> dataLayerCaptionAvailable{};
    std::optional<std::string> dataLayerStreamType{};
    std::optional<std::string> dataLayerVideoType{};
    std::optional<std::string> dataLayerTitleTitle{};

    friend bool operator==(const VideoAnalytics&, const VideoAnalytics&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<VideoAnalytics>();

}  // namespace VanticRestKit
