#pragma once

/// \file
/// `LivestreamRegion`: a region with livestreams of its own.

#include <VanticRestKit/platform/json/RawText.h>

#include <array>
#include <compare>

namespace VanticRestKit {

/// A region with livestreams of its own. Regions compare by their raw texts, not by the order of the cases.
enum class LivestreamRegion { ACT, SA, NSW, VIC, WA, NT, QLD, TAS };

template <>
struct RawTexts<LivestreamRegion> {
    static constexpr RawCase<LivestreamRegion> cases[] = {
        {LivestreamRegion::ACT, "ACT", "act"}, {LivestreamRegion::SA, "SA", "sa"},
        {LivestreamRegion::NSW, "NSW", "nsw"}, {LivestreamRegion::VIC, "VIC", "vic"},
        {LivestreamRegion::WA, "WA", "wa"},    {LivestreamRegion::NT, "NT", "nt"},
        {LivestreamRegion::QLD, "QLD", "qld"}, {LivestreamRegion::TAS, "TAS", "tas"},
    };
};

/// All regions, in the order of the cases.
constexpr std::array<LivestreamRegion, 8> allLivestreamRegions() {
    using enum LivestreamRegion;
    return {ACT, SA, NSW, VIC, WA, NT, QLD, TAS};
}

/// Whether the raw text of `a` comes before that of `b`. This stands in the place of the order of the cases.
constexpr bool operator<(LivestreamRegion a, LivestreamRegion b) noexcept {
    return rawValue(a) < rawValue(b);
}
constexpr bool operator>(LivestreamRegion a, LivestreamRegion b) noexcept { return b < a; }
constexpr bool operator<=(LivestreamRegion a, LivestreamRegion b) noexcept { return !(b < a); }
constexpr bool operator>=(LivestreamRegion a, LivestreamRegion b) noexcept { return !(a < b); }
constexpr std::strong_ordering operator<=>(LivestreamRegion a, LivestreamRegion b) noexcept {
    return rawValue(a) <=> rawValue(b);
}

}  // namespace VanticRestKit
