#pragma once

/// \file
/// Every operation on user data: what it sends, and how it handles responses.

#include <VanticRestKit/trelvo/Common/TrelvoContext.h>

#include <trelvo/Outcomes.h>
#include <functional>
#include <string>
#include <vector>

namespace VanticRestKit::test {

struct Operation {
    using Kind = TrelvoError::Kind;

    std::string name{};
    /// The name that it reports if there is neither a token nor an error.
    std::string nameInErrors{};
    std::string method{};
    /// Path and query for the user "u1".
    std::string target{};
    std::string body{};
    /// The member of a response that makes it succeed, such as `"data":[]`. May be empty.
    std::string good{};
    /// Whether it keeps the tokens of its response.
    bool keepsTokens = true;
    /// The error for a response that is an empty object, or empty for a success.
    std::optional<Kind> emptyAnswer{};
    /// The error for a 404, or empty for a success.
    std::optional<Kind> notFound = Kind::general;
    /// Whether it fails if the client is destroyed before the response.
    bool needsClient = false;
    std::function<void(Trelvo&, const TrelvoContext&, Completed)> run{};
};

/// All operations, including those on datasets, which hosts can only use for profiles. Without `deleteSubprofile`,
/// which consists of three of them.
const std::vector<Operation>& operations();

inline std::ostream& operator<<(std::ostream& stream, const Operation& operation) {
    return stream << operation.name;
}

}  // namespace VanticRestKit::test
