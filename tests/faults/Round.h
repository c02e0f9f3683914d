#pragma once

/// \file
/// The loads that a trial starts while a call fails, with a session that only they use.

#include "Origin.h"

#include <span>
#include <string>
#include <string_view>

namespace VanticRestKit::test {

/// How the loads of a round ended.
struct RoundOutcome {
    enum class Kind {
        /// Each load gave the expected value.
        value,
        /// At least one load ended with an error.
        error,
        /// At least one load gave another value.
        wrong,
    };
    Kind kind = Kind::value;
    /// The error, or what is wrong with the value.
    std::string story{};
};

/// The settings of a round.
struct RoundSetting {
    Addresses addresses;
    /// A folder for this round only.
    std::string folder{};
    /// Different for each round, so that each loads from another URL.
    int number = 0;
};

/// Creates a session, loads with it and releases it.
struct Scenario {
    std::string_view name;
    RoundOutcome (*run)(const RoundSetting& setting);
};

std::span<const Scenario> scenarios();

}  // namespace VanticRestKit::test
