#pragma once

/// \file
/// What a trial does while a call fails: a host's loads with a session of their own.

#include "Origin.h"

#include <span>
#include <string>
#include <string_view>

namespace VanticRestKit::test {

/// How the loads of a round ended.
struct RoundOutcome {
    enum class Kind {
        /// Each gave the value that the server has.
        value,
        /// At least one ended with an error.
        error,
        /// At least one gave something else.
        wrong,
    };
    Kind kind = Kind::value;
    /// The error, or what was wrong.
    std::string story{};
};

/// What a round needs.
struct RoundSetting {
    Addresses addresses;
    /// A folder of its own.
    std::string folder{};
    /// Each round loads something that no other has loaded.
    int number = 0;
};

/// Makes a session, loads, and lets go of the session.
struct Scenario {
    std::string_view name;
    RoundOutcome (*run)(const RoundSetting& setting);
};

std::span<const Scenario> scenarios();

}  // namespace VanticRestKit::test
