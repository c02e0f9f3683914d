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

/// The answers that were recorded, for the rule of a script. A request is known again by its method, path, query and
/// body; headers and secrets do not matter. What was recorded several times is answered in that order; the last answer
/// is repeated. Copies are one replay. Any thread.
///
/// A request that was not recorded fails with an error that names it, the folder and what comes nearest to it.
///
/// ```cpp
/// const Replay replay("recordings/home");
/// service.on("/**").answerBy(replay);
/// ...
/// EXPECT_EQ("", replay.problems());
/// ```
class Replay {
public:
    /// Reads all files of the folder that end with ".txt". Give it the redaction that was recorded with.
    explicit Replay(const std::string& folder, Redaction redaction = {});

    /// The recorded answer.
    Answer operator()(const AskedRequest& asked) const;

    /// How many answers were recorded.
    std::size_t size() const;

    /// What went wrong, for a person to read: files that are no recordings, a folder without any, and the requests that
    /// were not recorded. An empty string if all was as recorded.
    std::string problems() const;

private:
    struct State;

    std::shared_ptr<State> state_;
};

}  // namespace VanticRestKit::Testing
