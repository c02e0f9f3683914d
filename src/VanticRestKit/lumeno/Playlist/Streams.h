#pragma once

/// \file
/// `Streams`: one stream for each technology of delivery, each with its addresses by quality, a `StreamInfo`.

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

/// The addresses of one stream, by quality. Any JSON object decodes into one.
struct VRK_EXPORT StreamInfo {
    /// A level of quality. An enumeration, but a class, so that it can list its cases. The order of the cases is not the
    /// order of quality; see `highToLow`.
    class VRK_EXPORT StreamLevel {
    public:
        /// What a `switch` sees; `StreamLevel::sd` serves as its label.
        enum class Case { sd, sdLow, hd720, hd1080 };

        /// Raw text "sd".
        static const StreamLevel sd;
        /// Raw text "sd".
        static const StreamLevel sdLow;
        /// Raw text "720".
        static const StreamLevel hd720;
        /// Raw text "1080".
        static const StreamLevel hd1080;

        /// All levels, the best first.
        static std::vector<StreamLevel> highToLow();
        /// All levels, the best last.
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
        /// The level whose address is wanted.
        Required<StreamLevel> for_;
    };
    /// The argument of `url`: the best level or the poorest.
    struct PreferenceArgument {
        /// Whether the best level is wanted, else the poorest.
        Required<bool> preferHighest;
    };

    /// Whether the stream is protected against copying.
    bool protected_{};
    /// The address at this level. Key `sd`; empty if absent or not a string.
    std::optional<std::string> sd{};
    /// The address at this level. Key `sd-low`; empty if absent or not a string.
    std::optional<std::string> sdLow{};
    /// The address at this level. Key `720`; empty if absent or not a string.
    std::optional<std::string> hd720{};
    /// The address at this level. Key `1080`; empty if absent or not a string.
    std::optional<std::string> hd1080{};

    /// The address of one level, `info.url({.for_ = level})`; empty where there is none. No other level stands in.
    std::optional<std::string> url(LevelArgument argument) const;

    /// The address of the best level that has one, `info.url({.preferHighest = true})`, or of the poorest. An
    /// address without characters counts. Empty where no level has one.
    std::optional<std::string> url(PreferenceArgument argument) const;

    friend bool operator==(const StreamInfo&, const StreamInfo&) = default;
};

inline constexpr StreamInfo::StreamLevel StreamInfo::StreamLevel::sd{Case::sd};
inline constexpr StreamInfo::StreamLevel StreamInfo::StreamLevel::sdLow{Case::sdLow};
inline constexpr StreamInfo::StreamLevel StreamInfo::StreamLevel::hd720{Case::hd720};
inline constexpr StreamInfo::StreamLevel StreamInfo::StreamLevel::hd1080{Case::hd1080};

/// The raw texts of `StreamInfo::StreamLevel`.
template <>
struct RawTexts<StreamInfo::StreamLevel> {
    /// The cases with their names and raw texts, in case order.
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
    /// MPEG-DASH. Key `mpegdash`; empty if absent or null; another type fails the decoding.
    std::optional<StreamInfo> mpegdash{};
    /// FairPlay. Key `fairplay`; empty if absent or null; another type fails the decoding.
    std::optional<StreamInfo> fairplay{};
    /// HTTP Live Streaming. Key `hls`; must be there.
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
