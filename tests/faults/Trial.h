#pragma once

/// \file
/// Runs a round in a separate process in which one call fails, and judges the result.

#include "Round.h"
#include "Shim.h"

#include <array>
#include <chrono>
#include <cstdint>
#include <string>

namespace VanticRestKit::test {

struct Trial {
    const Scenario* scenario = nullptr;
    /// Whether a call of the first load of the process fails; otherwise one of a later session.
    bool isFirst = false;
    Fault fault{};
    /// Whether to print the stack of the call that fails.
    bool isTraced = false;
    /// After this time the process counts as hung. Far longer than the rounds take on a busy machine, but shorter than
    /// any timeout of a load.
    std::chrono::seconds deadline{25};
};

enum class Verdict {
    /// The loads succeeded, and no call failed: there were fewer calls this time.
    untouched,
    /// The loads succeeded despite the failed call.
    value,
    /// A load ended with an error.
    error,
    /// The process ended with a message that memory ran out.
    message,
    // The rest are faults of the library:
    hung,
    wrong,
    crashed,
    /// Descriptors or memory were not released.
    leaked,
    /// After a fault in a later session, the next session did not load.
    spoiled,
};

inline constexpr int verdictCount = static_cast<int>(Verdict::spoiled) + 1;

constexpr bool isGood(Verdict verdict) { return verdict <= Verdict::message; }

const char* nameOf(Verdict verdict);

struct TrialReport {
    Verdict verdict = Verdict::crashed;
    std::string story{};
    /// The number of calls of each kind.
    std::array<std::uint64_t, callCount> counts{};
};

/// Runs a trial. The program must have one thread only, because the trial forks.
TrialReport runTrial(const Trial& trial, const RoundSetting& setting);

}  // namespace VanticRestKit::test
