#pragma once

/// \file
/// `Streams`: one stream for each technology of delivery, each with its addresses by quality, a `StreamInfo`.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/json/PlanOf.h>
#include <VanticRestKit/platform/json/RawText.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// The addresses of one stream, by quality. Any JSON object decodes into one.
struct VRK_EXPORT StreamInfo {
    /// The levels of quality. The order of the cases is not the order of quality; see `highToLow`.
    enum class StreamLevel { sd, sdLow, hd720, hd1080 };

    struct LevelArgument {
        Required<StreamLevel> for_;
    };
    struct PreferenceArgument {
        Required<bool> preferHighest;
    };

    /// Whether the stream is protected against copying.
    bool protected_{};
    std::optional<std::string> sd{};
    std::optional<std::string> sdLow{};
    std::optional<std::string> hd720{};
    std::optional<std::string> hd1080{};

    /// All levels, the best first.
    static std::vector<StreamLevel> highToLow();
    /// All levels, the best last.
    static std::vector<StreamLevel> lowToHigh();

    /// The address of one level, `info.url({.for_ = level})`; empty where there is none. No other level stands in.
    std::optional<std::string> url(LevelArgument argument) const;

    /// The address of the best level that has one, `info.url({.preferHighest = true})`, or of the poorest. An
    /// address without characters counts. Empty where no level has one.
    std::optional<std::string> url(PreferenceArgument argument) const;

    friend bool operator==(const StreamInfo&, const StreamInfo&) = default;
};

template <>
struct RawTexts<StreamInfo::StreamLevel> {
    static constexpr RawCase<StreamInfo::StreamLevel> cases[] = {
        {StreamInfo::StreamLevel::sd, "sd", "sd"},
        {StreamInfo::StreamLevel::sdLow, "sdLow", "sd-low"},
        {StreamInfo::StreamLevel::hd720, "hd720", "720"},
        {StreamInfo::StreamLevel::hd1080, "hd1080", "1080"},
    };
};

template <>
VRK_EXPORT const TypePlan& planOf<StreamInfo>();

/// One stream for each technology of delivery. HLS must be there; the others may be left out.
struct Streams {
    std::optional<StreamInfo> mpegdash{};
    std::optional<StreamInfo> fairplay{};
    StreamInfo hls{};

    friend bool operator==(const Streams&, const Streams&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<Streams>();

}  // namespace VanticRestKit
