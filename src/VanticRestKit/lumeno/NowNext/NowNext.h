#pragma once

/// \file
/// `NowNext`: what is on now and what comes next, each a `NowNextContainer`.

#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/platform/json/RawText.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <optional>
#include <string>

namespace VanticRestKit {

/// One programme of a schedule. An event of a kind that is not known fails it.
struct NowNextContainer {
    /// Whether the channel is on air, off air or has no stream.
    enum class EventType { ONAIR, OFFAIR, NOSTREAM };

    /// The house number. Key `houseNumber`; must be there and be a string.
    std::string houseNumber{};
    /// The title to show. Key `displayTitle`; must be there and be a string.
    std::string displayTitle{};
    /// The subtitle to show. Key `displaySubtitle`; must be there and be a string.
    std::string displaySubtitle{};
    /// What it is about. Key `description`; empty if absent or not a string.
    std::optional<std::string> description{};
    /// As the service sends it; the library gives it no unit.
    std::uint64_t start{};
    /// As `start`.
    std::uint64_t end{};
    /// As `start`.
    std::uint64_t duration{};
    /// Whether it can be played. Key `playable`; must be there and be a boolean.
    bool playable{};
    /// Whether there are captions. Key `captions`; must be there and be a boolean.
    bool captions{};
    /// For which ages the programme is, as a text to show.
    std::optional<std::string> classification{};
    /// Key `eventType`; must be there.
    EventType eventType{};
    /// What kind of entity the service calls it; not compared with anything.
    std::string entity{};

    friend bool operator==(const NowNextContainer&, const NowNextContainer&) = default;
};

/// The raw texts of `NowNextContainer::EventType`.
template <>
struct RawTexts<NowNextContainer::EventType> {
    /// The cases with their names and raw texts, in case order.
    static constexpr RawCase<NowNextContainer::EventType> cases[] = {
        {NowNextContainer::EventType::ONAIR, "ONAIR", "ONAIR"},
        {NowNextContainer::EventType::OFFAIR, "OFFAIR", "OFFAIR"},
        {NowNextContainer::EventType::NOSTREAM, "NOSTREAM", "NOSTREAM"},
    };
};

template <>
VRK_EXPORT const TypePlan& planOf<NowNextContainer>();

/// What is on a channel now and what comes next. A programme that is there must decode.
struct NowNext {
    /// What is on now. Key `now`; empty if absent or null; another type fails the decoding.
    std::optional<NowNextContainer> now{};
    /// What comes next. Key `next`; empty if absent or null; another type fails the decoding.
    std::optional<NowNextContainer> next{};

    friend bool operator==(const NowNext&, const NowNext&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<NowNext>();

}  // namespace VanticRestKit
