#pragma once

// Gives tests access to a `Trelvo`.

#include <VanticRestKit/trelvo/State/detail/TrelvoState.h>
#include <VanticRestKit/trelvo/Trelvo.h>

#include <functional>
#include <memory>
#include <utility>

namespace VanticRestKit {

/// Creates clients with a clock that the test provides.
struct TrelvoProbe {
    /// See the constructor of `TrelvoState`.
    static Trelvo make(std::function<double()> now, detail::TrelvoState::WillWait willWait = {}) {
        return Trelvo(std::make_shared<detail::TrelvoState>(std::move(now), std::move(willWait)));
    }
    static detail::TrelvoState& state(Trelvo& trelvo) { return *trelvo.state_; }
};

}  // namespace VanticRestKit
