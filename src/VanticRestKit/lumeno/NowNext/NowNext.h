#pragma once

/// \file
/// `NowNext`: what is on now and what comes next, each a `NowNextContainer`.

#include <VanticRestKit/platform/json/PlanOf.h>
#include <VanticRestKit/platform/json/RawText.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <optional>
#include <string>

namespace VanticRestKit {

/// One programme of a schedule. An event of a kind that is not known fails it.
struct NowNextContainer {
    enum class EventType { ONAIR, OFFAIR, NOSTREAM };

    std::string houseNumber{};
    std::string displayTitle{};
    std::string displaySubtitle{};
    std::optional<std::string> description{};
    /// As the service sends it; the library gives it no unit.
    std::uint64_t start{};
    /// As `start`.
    std::uint64_t end{};
    /// As `start`.
    std::uint64_t duration{};
    bool playable{};
    bool captions{};
    /// For which ages the programme is, as a text to show.
    std::optional<std::string> classification{};
    EventType eventType{};
    /// What kind of entity the service calls it; not compared with anything.
    std::string entity{};

    friend bool operator==(const NowNextContainer&, const NowNextContainer&) = default;
};

template <>
struct RawTexts<NowNextContainer::EventType> {
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
    std::optional<NowNextContainer> now{};
    std::optional<NowNextContainer> next{};

    friend bool operator==(const NowNext&, const NowNext&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<NowNext>();

}  // namespace VanticRestKit
