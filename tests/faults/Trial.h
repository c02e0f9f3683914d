#pragma once

/// \file
/// A round in a process of its own, in which one call fails, and what became of it.

#include "Round.h"
#include "Shim.h"

#include <array>
#include <chrono>
#include <cstdint>
#include <string>

namespace VanticRestKit::test {

struct Trial {
    const Scenario* scenario = nullptr;
    /// Whether the calls that fail are those of the first load of the process, else those of a later session.
    bool isFirst = false;
    Fault fault{};
    /// Whether the stack of the call that fails is printed.
    bool isTraced = false;
    /// When it counts as hung: far more than its rounds take on a busy machine, and less than any time-out of a load.
    std::chrono::seconds deadline{25};
};

enum class Verdict {
    /// All went well: the call did not fail, since there were fewer this time.
    untouched,
    /// The fault was made good.
    value,
    /// The load ended with an error.
    error,
    /// The process ended for want of memory, with a message.
    message,
    // What must not be:
    hung,
    wrong,
    crashed,
    /// Descriptors or memory were left.
    leaked,
    /// After a fault in a later session, the next one did not load.
    spoiled,
};

inline constexpr int verdictCount = static_cast<int>(Verdict::spoiled) + 1;

constexpr bool isGood(Verdict verdict) { return verdict <= Verdict::message; }

const char* nameOf(Verdict verdict);

struct TrialReport {
    Verdict verdict = Verdict::crashed;
    std::string story{};
    /// How many calls of each kind there were.
    std::array<std::uint64_t, callCount> counts{};
};

/// Runs a trial. For a program with one thread.
TrialReport runTrial(const Trial& trial, const RoundSetting& setting);

}  // namespace VanticRestKit::test
