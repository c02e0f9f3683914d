#pragma once

/// \file
/// `RequestPattern`: the requests that a rule of a script matches.

#include <VanticRestKit/Testing/AskedRequest.h>

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit::Testing {

/// A pattern for requests: `"GET /v2/show/*?channel=one"`.
///
/// - Without a method, every method matches.
/// - A path begins with a slash and is compared as sent. `*` matches one segment, `**` at the end all remaining ones.
///   Double slashes count as one.
/// - The request must contain each query item of the pattern, as sent and in any order; it may contain others.
class RequestPattern {
public:
    /// A pattern as described above.
    RequestPattern(std::string text);
    /// A pattern as described above.
    RequestPattern(const char* text) : RequestPattern(std::string(text)) {}

    /// A copy that only matches requests with this header value.
    RequestPattern withHeader(std::string name, std::string value) const;
    /// A copy that only matches requests whose body contains `text`.
    RequestPattern withBody(std::string text) const;

    /// Whether the pattern matches a request.
    bool fits(const AskedRequest& asked) const { return !mismatch(asked); }

    /// The first reason why the pattern does not match; empty if it matches.
    std::optional<std::string> mismatch(const AskedRequest& asked) const;

    /// How much a request differs from the pattern; 0 if it matches.
    std::size_t distance(const AskedRequest& asked) const;

    /// The pattern as text, including headers and bodies.
    std::string text() const;

private:
    std::string text_;
    std::string method_{};
    std::vector<std::string> segments_{};
    std::vector<std::string> items_{};
    std::vector<std::pair<std::string, std::string>> headers_{};
    std::vector<std::string> bodies_{};
};

}  // namespace VanticRestKit::Testing
