#pragma once

/// \file
/// `NowNext`: the current and the next programme of a channel, each a `NowNextContainer`.

#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/platform/json/RawText.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <optional>
#include <string>

namespace VanticRestKit {

/// One programme of a schedule. Decoding fails for an unknown kind of event.
struct NowNextContainer {
    /// Whether the channel is on air, off air or has no stream.
    enum class EventType { ONAIR, OFFAIR, NOSTREAM };

    /// The house number. Key `houseNumber`; a required string.
    std::string houseNumber{};
    /// The title to display. Key `displayTitle`; a required string.
    std::string displayTitle{};
    /// The subtitle to display. Key `displaySubtitle`; a required string.
    std::string displaySubtitle{};
    /// The description. Key `description`; empty if absent or not a string.
    std::optional<std::string> description{};
    /// The value that the service sends; the unit is not specified. A required whole number.
    std::uint64_t start{};
    /// As `start`.
    std::uint64_t end{};
    /// As `start`.
    std::uint64_t duration{};
    /// Whether it can be played. Key `playable`; a required boolean.
    bool playable{};
    /// Whether there are captions. Key `captions`; a required boolean.
    bool captions{};
    /// The age classification, as text to display.
    std::optional<std::string> classification{};
    /// Key `eventType`; required.
    EventType eventType{};
    /// The kind of entity according to the service; not checked. Key `_entity`; a required string.
    std::string entity{};

    friend bool operator==(const NowNextContainer&, const NowNextContainer&) = default;
};

/// The raw strings of `NowNextContainer::EventType`.
template <>
struct RawTexts<NowNextContainer::EventType> {
    /// The cases with their names and raw strings, in declaration order.
    static constexpr RawCase<NowNextContainer::EventType> cases[] = {
        {NowNextContainer::EventType::ONAIR, "ONAIR", "ONAIR"},
        {NowNextContainer::EventType::OFFAIR, "OFFAIR", "OFFAIR"},
        {NowNextContainer::EventType::NOSTREAM, "NOSTREAM", "NOSTREAM"},
    };
};

template <>
VRK_EXPORT const TypePlan& planOf<NowNextContainer>();

/// The current and the next programme of a channel. Decoding fails if one of them cannot be decoded.
struct NowNext {
    /// The current programme. Key `now`; empty if absent or null; decoding fails for another type.
    std::optional<NowNextContainer> now{};
    /// The next programme. Key `next`; empty if absent or null; decoding fails for another type.
    std::optional<NowNextContainer> next{};

    friend bool operator==(const NowNext&, const NowNext&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<NowNext>();

}  // namespace VanticRestKit
