#pragma once

/// \file
/// `NowNext`: what is on now and what comes next.

#include <VanticRestKit/lumeno/NowNext/NowNextContainer.h>
#include <VanticRestKit/platform/json/PlanOf.h>
#include <VanticRestKit/Visibility.h>

#include <optional>

namespace VanticRestKit {

/// What is on a channel now and what comes next. A programme that is there must decode.
struct NowNext {
    std::optional<NowNextContainer> now{};
    std::optional<NowNextContainer> next{};

    friend bool operator==(const NowNext&, const NowNext&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<NowNext>();

}  // namespace VanticRestKit
