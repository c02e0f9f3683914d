#pragma once

/// \file
/// `Streams`: a stream for each delivery technology, each a `StreamInfo` with a URL for each quality.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/platform/json/RawText.h>
#include <VanticRestKit/Visibility.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace VanticRestKit {

/// The URLs of one stream, by quality. Any JSON object can be decoded.
struct VRK_EXPORT StreamInfo {
    /// A quality level. This is a class and not an enumeration so that it can list its cases. They are not in order of
    /// quality; see `highToLow`.
    class VRK_EXPORT StreamLevel {
    public:
        /// The cases, for a `switch`; its labels are `StreamLevel::sd` and so on.
        enum class Case { sd, sdLow, hd720, hd1080 };

        /// Raw string "sd".
        static const StreamLevel sd;
        /// Raw string "sd".
        static const StreamLevel sdLow;
        /// Raw string "720".
        static const StreamLevel hd720;
        /// Raw string "1080".
        static const StreamLevel hd1080;

        /// All levels, from the highest to the lowest.
        static std::vector<StreamLevel> highToLow();
        /// All levels, from the lowest to the highest.
        static std::vector<StreamLevel> lowToHigh();

        /// `sd`.
        constexpr StreamLevel() noexcept : case_(Case::sd) {}
        /// For a `switch`.
        constexpr operator Case() const noexcept { return case_; }

        /// Whether both are equal.
        friend constexpr bool operator==(StreamLevel a, StreamLevel b) noexcept { return a.case_ == b.case_; }

    private:
        constexpr explicit StreamLevel(Case value) noexcept : case_(value) {}

        Case case_;
    };

    /// The argument of `url`: one level.
    struct LevelArgument {
        /// The requested level.
        Required<StreamLevel> for_;
    };
    /// The argument of `url`: the highest or the lowest level.
    struct PreferenceArgument {
        /// True for the highest level, false for the lowest.
        Required<bool> preferHighest;
    };

    /// Whether the stream has copy protection. Key `protected`; false if absent or not a boolean.
    bool protected_{};
    /// The URL for this level. Key `sd`; empty if absent or not a string.
    std::optional<std::string> sd{};
    /// The URL for this level. Key `sd-low`; empty if absent or not a string.
    std::optional<std::string> sdLow{};
    /// The URL for this level. Key `720`; empty if absent or not a string.
    std::optional<std::string> hd720{};
    /// The URL for this level. Key `1080`; empty if absent or not a string.
    std::optional<std::string> hd1080{};

    /// The URL for exactly this level: `info.url({.for_ = level})`. Empty if there is none.
    std::optional<std::string> url(LevelArgument argument) const;

    /// The URL for the highest level that has one, `info.url({.preferHighest = true})`, or for the lowest. An empty
    /// string counts as a URL. Empty if no level has one.
    std::optional<std::string> url(PreferenceArgument argument) const;

    friend bool operator==(const StreamInfo&, const StreamInfo&) = default;
};

inline constexpr StreamInfo::StreamLevel StreamInfo::StreamLevel::sd{Case::sd};
inline constexpr StreamInfo::StreamLevel StreamInfo::StreamLevel::sdLow{Case::sdLow};
inline constexpr StreamInfo::StreamLevel StreamInfo::StreamLevel::hd720{Case::hd720};
inline constexpr StreamInfo::StreamLevel StreamInfo::StreamLevel::hd1080{Case::hd1080};

/// The raw strings of `StreamInfo::StreamLevel`.
template <>
struct RawTexts<StreamInfo::StreamLevel> {
    /// The cases with their names and raw strings, in declaration order.
    static constexpr RawCase<StreamInfo::StreamLevel> cases[] = {
        {StreamInfo::StreamLevel::sd, "sd", "sd"},
        {StreamInfo::StreamLevel::sdLow, "sdLow", "sd-low"},
        {StreamInfo::StreamLevel::hd720, "hd720", "720"},
        {StreamInfo::StreamLevel::hd1080, "hd1080", "1080"},
    };
};

template <>
VRK_EXPORT const TypePlan& planOf<StreamInfo>();

/// A stream for each delivery technology. Only HLS is required.
struct Streams {
    /// MPEG-DASH. Key `mpegdash`; empty if absent or null; decoding fails for another type.
    std::optional<StreamInfo> mpegdash{};
    /// FairPlay. Key `fairplay`; empty if absent or null; decoding fails for another type.
    std::optional<StreamInfo> fairplay{};
    /// HTTP Live Streaming. Key `hls`; required.
    StreamInfo hls{};

    friend bool operator==(const Streams&, const Streams&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<Streams>();

}  // namespace VanticRestKit

/// The hash of a value.
template <>
struct std::hash<VanticRestKit::StreamInfo::StreamLevel> {
    /// The hash.
    std::size_t operator()(VanticRestKit::StreamInfo::StreamLevel level) const noexcept {
        return static_cast<std::size_t>(static_cast<VanticRestKit::StreamInfo::StreamLevel::Case>(level));
    }
};
