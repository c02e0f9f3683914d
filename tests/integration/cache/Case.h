#pragma once

/// \file
/// Runs one of the public HTTP cache test cases against the session.

#include "CaseServer.h"

#include <nlohmann/json.hpp>
#include <string>

namespace VanticRestKit::test {

/// The result of a case.
struct CaseResult {
    enum class Kind {
        passed,
        failed,
        /// A precondition failed, so the case proves nothing.
        notRun,
    };
    Kind kind = Kind::passed;
    /// The expectation that was not met.
    std::string reason{};
};

/// Runs a case with its own session and cache. The clock is advanced instead of pausing.
CaseResult runCase(CaseServer& server, MovedClock& clock, const nlohmann::json& testCase);

}  // namespace VanticRestKit::test
