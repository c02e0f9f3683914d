#pragma once

/// \file
/// Every operation on user data: what it sends and what it makes of answers.

#include <VanticRestKit/trelvo/Common/TrelvoContext.h>

#include <trelvo/Outcomes.h>
#include <functional>
#include <string>
#include <vector>

namespace VanticRestKit::test {

struct Operation {
    using Kind = TrelvoError::Kind;

    std::string name{};
    /// What it calls itself where there is neither token nor error.
    std::string saysThatItIs{};
    std::string method{};
    /// Path and query for the user "u1".
    std::string target{};
    std::string body{};
    /// A member of an answer with which it succeeds, such as `"data":[]`; may be empty.
    std::string good{};
    /// Whether it keeps the tokens of its answer.
    bool keepsTokens = true;
    /// What an answer that is an empty object is; empty for a success.
    std::optional<Kind> emptyAnswer{};
    /// What a 404 is; empty for a success.
    std::optional<Kind> notFound = Kind::general;
    /// Whether it fails when the client has gone before the answer.
    bool needsClient = false;
    std::function<void(Trelvo&, const TrelvoContext&, Completed)> run{};
};

/// All operations, those on datasets that hosts reach as profiles only included; `deleteSubprofile`, which is
/// three of them, is not.
const std::vector<Operation>& operations();

inline std::ostream& operator<<(std::ostream& stream, const Operation& operation) {
    return stream << operation.name;
}

}  // namespace VanticRestKit::test
