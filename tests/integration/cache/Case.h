#pragma once

/// \file
/// Runs one of the public cases for caches against the session.

#include "CaseServer.h"

#include <nlohmann/json.hpp>
#include <string>

namespace VanticRestKit::test {

/// What became of a case.
struct CaseResult {
    enum class Kind {
        passed,
        failed,
        /// A precondition failed, so that it proves nothing.
        notRun,
    };
    Kind kind = Kind::passed;
    /// What was expected and did not come.
    std::string reason{};
};

/// Runs a case with a session and a cache of its own. The clock is moved where the case has a pause.
CaseResult runCase(CaseServer& server, MovedClock& clock, const nlohmann::json& testCase);

}  // namespace VanticRestKit::test
