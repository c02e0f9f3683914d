#pragma once

/// \file
/// `LivestreamRegion`: a region with livestreams of its own.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/platform/json/RawText.h>

#include <array>
#include <compare>
#include <cstddef>
#include <optional>
#include <string_view>

namespace VanticRestKit {

/// A region with livestreams of its own. An enumeration, but a class, so that it can list its cases. Regions compare by
/// their raw strings, not by the order of the cases.
class LivestreamRegion {
public:
    /// What a `switch` sees; `LivestreamRegion::NSW` serves as its label.
    enum class Case { ACT, SA, NSW, VIC, WA, NT, QLD, TAS };

    static const LivestreamRegion ACT;
    static const LivestreamRegion SA;
    static const LivestreamRegion NSW;
    static const LivestreamRegion VIC;
    static const LivestreamRegion WA;
    static const LivestreamRegion NT;
    static const LivestreamRegion QLD;
    static const LivestreamRegion TAS;

    /// All regions, in the order of the cases.
    static const std::array<LivestreamRegion, 8> allCases;

    /// `ACT`.
    constexpr LivestreamRegion() noexcept = default;
    constexpr operator Case() const noexcept { return case_; }

    friend constexpr bool operator==(LivestreamRegion a, LivestreamRegion b) noexcept {
        return a.case_ == b.case_;
    }
    friend constexpr std::strong_ordering operator<=>(LivestreamRegion a, LivestreamRegion b) noexcept;

private:
    constexpr explicit LivestreamRegion(Case value) noexcept : case_(value) {}

    Case case_{};
};

inline constexpr LivestreamRegion LivestreamRegion::ACT{Case::ACT};
inline constexpr LivestreamRegion LivestreamRegion::SA{Case::SA};
inline constexpr LivestreamRegion LivestreamRegion::NSW{Case::NSW};
inline constexpr LivestreamRegion LivestreamRegion::VIC{Case::VIC};
inline constexpr LivestreamRegion LivestreamRegion::WA{Case::WA};
inline constexpr LivestreamRegion LivestreamRegion::NT{Case::NT};
inline constexpr LivestreamRegion LivestreamRegion::QLD{Case::QLD};
inline constexpr LivestreamRegion LivestreamRegion::TAS{Case::TAS};

inline constexpr std::array<LivestreamRegion, 8> LivestreamRegion::allCases{ACT, SA, NSW, VIC,
                                                                            WA,  NT, QLD, TAS};

template <>
struct RawTexts<LivestreamRegion> {
    static constexpr RawCase<LivestreamRegion> cases[] = {
        {LivestreamRegion::ACT, "ACT", "act"}, {LivestreamRegion::SA, "SA", "sa"},
        {LivestreamRegion::NSW, "NSW", "nsw"}, {LivestreamRegion::VIC, "VIC", "vic"},
        {LivestreamRegion::WA, "WA", "wa"},    {LivestreamRegion::NT, "NT", "nt"},
        {LivestreamRegion::QLD, "QLD", "qld"}, {LivestreamRegion::TAS, "TAS", "tas"},
    };
};

/// By the raw strings.
constexpr std::strong_ordering operator<=>(LivestreamRegion a, LivestreamRegion b) noexcept {
    return rawValue(a) <=> rawValue(b);
}

struct Endpoint::LivestreamsArguments {
    /// Empty for the whole country.
    Required<std::optional<LivestreamRegion>> region;
};

}  // namespace VanticRestKit

template <>
struct std::hash<VanticRestKit::LivestreamRegion> {
    std::size_t operator()(VanticRestKit::LivestreamRegion region) const noexcept {
        return static_cast<std::size_t>(static_cast<VanticRestKit::LivestreamRegion::Case>(region));
    }
};
