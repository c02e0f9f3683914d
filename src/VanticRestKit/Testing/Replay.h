#pragma once

/// \file
/// `Replay`: answers from a folder that a `RecordingSession` has written.

#include <VanticRestKit/Testing/Answer.h>
#include <VanticRestKit/Testing/AskedRequest.h>
#include <VanticRestKit/Testing/Redaction.h>

#include <cstddef>
#include <memory>
#include <string>

namespace VanticRestKit::Testing {

/// Recorded answers, for a rule of a script. Requests are matched by method, path, query and body; headers and secrets
/// are ignored. If a request was recorded several times, its answers are used in that order, and the last one is
/// repeated. Copies share their state. Any thread.
///
/// A request that was not recorded fails with an error that names it, the folder and the closest recorded request.
///
/// ```cpp
/// const Replay replay("recordings/home");
/// service.on("/**").answerBy(replay);
/// ...
/// EXPECT_EQ("", replay.problems());
/// ```
class Replay {
public:
    /// Reads all files of the folder whose names end with ".txt". `redaction` must be that of the recording.
    explicit Replay(const std::string& folder, Redaction redaction = {});

    /// The recorded answer to a request.
    Answer operator()(const AskedRequest& asked) const;

    /// The number of recorded answers.
    std::size_t size() const;

    /// A readable list of problems: files that are not recordings, a folder without recordings, and requests that were
    /// not recorded. An empty string if there are none.
    std::string problems() const;

private:
    struct State;

    std::shared_ptr<State> state_;
};

}  // namespace VanticRestKit::Testing
