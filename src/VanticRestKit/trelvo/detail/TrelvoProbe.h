#pragma once

// How tests reach into a client of the user data service.

#include <VanticRestKit/trelvo/State/detail/TrelvoState.h>
#include <VanticRestKit/trelvo/Trelvo.h>

#include <functional>
#include <memory>
#include <utility>

namespace VanticRestKit {

/// Makes clients with a clock of the test's own.
struct TrelvoProbe {
    /// The arguments are those of `TrelvoState`.
    static Trelvo make(std::function<double()> now, detail::TrelvoState::WillWait willWait = {}) {
        return Trelvo(std::make_shared<detail::TrelvoState>(std::move(now), std::move(willWait)));
    }
    static detail::TrelvoState& state(Trelvo& trelvo) { return *trelvo.state_; }
};

}  // namespace VanticRestKit
