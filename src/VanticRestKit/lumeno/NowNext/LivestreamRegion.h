#pragma once

/// \file
/// `LivestreamRegion`: a region with its own livestreams.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/platform/json/RawText.h>

#include <array>
#include <compare>
#include <cstddef>
#include <optional>
#include <string_view>

namespace VanticRestKit {

/// A region with its own livestreams. This is a class and not an enumeration so that it can list its cases. Regions are
/// ordered by their raw strings, not by the order of the cases.
class LivestreamRegion {
public:
    /// The cases, for a `switch`; its labels are `LivestreamRegion::NSW` and so on.
    enum class Case { ACT, SA, NSW, VIC, WA, NT, QLD, TAS };

    /// Raw string "act".
    static const LivestreamRegion ACT;
    /// Raw string "sa".
    static const LivestreamRegion SA;
    /// Raw string "nsw".
    static const LivestreamRegion NSW;
    /// Raw string "vic".
    static const LivestreamRegion VIC;
    /// Raw string "wa".
    static const LivestreamRegion WA;
    /// Raw string "nt".
    static const LivestreamRegion NT;
    /// Raw string "qld".
    static const LivestreamRegion QLD;
    /// Raw string "tas".
    static const LivestreamRegion TAS;

    /// All regions, in the order of the cases.
    static const std::array<LivestreamRegion, 8> allCases;

    /// `ACT`.
    constexpr LivestreamRegion() noexcept = default;
    constexpr operator Case() const noexcept { return case_; }

    /// Whether both are equal.
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

/// The raw strings of `LivestreamRegion`.
template <>
struct RawTexts<LivestreamRegion> {
    /// The cases with their names and raw strings, in declaration order.
    static constexpr RawCase<LivestreamRegion> cases[] = {
        {LivestreamRegion::ACT, "ACT", "act"}, {LivestreamRegion::SA, "SA", "sa"},
        {LivestreamRegion::NSW, "NSW", "nsw"}, {LivestreamRegion::VIC, "VIC", "vic"},
        {LivestreamRegion::WA, "WA", "wa"},    {LivestreamRegion::NT, "NT", "nt"},
        {LivestreamRegion::QLD, "QLD", "qld"}, {LivestreamRegion::TAS, "TAS", "tas"},
    };
};

/// Compares the raw strings.
constexpr std::strong_ordering operator<=>(LivestreamRegion a, LivestreamRegion b) noexcept {
    return rawValue(a) <=> rawValue(b);
}

/// The arguments of `Livestreams`.
struct Endpoint::LivestreamsArguments {
    /// Empty for the whole country.
    Required<std::optional<LivestreamRegion>> region;
};

}  // namespace VanticRestKit

/// The hash of a value.
template <>
struct std::hash<VanticRestKit::LivestreamRegion> {
    /// The hash.
    std::size_t operator()(VanticRestKit::LivestreamRegion region) const noexcept {
        return static_cast<std::size_t>(static_cast<VanticRestKit::LivestreamRegion::Case>(region));
    }
};
