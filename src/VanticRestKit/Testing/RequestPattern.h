#pragma once

/// \file
/// `RequestPattern`: says which requests a rule of a script is for.

#include <VanticRestKit/Testing/AskedRequest.h>

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit::Testing {

/// Which requests are meant: `"GET /v2/show/*?channel=one"`.
///
/// - The method may be left out; then every method fits.
/// - A path begins with a slash and is compared as it is sent. `*` stands for one segment, `**` at the end for all that
///   is left. Doubled slashes count as one.
/// - Each query item that is named must be among those of the request, in any order and as it is sent; others do not
///   matter.
class RequestPattern {
public:
    /// A pattern as described above.
    RequestPattern(std::string text);
    /// A pattern as described above.
    RequestPattern(const char* text) : RequestPattern(std::string(text)) {}

    /// The same, for requests with a header of this value only.
    RequestPattern withHeader(std::string name, std::string value) const;
    /// The same, for requests whose body contains `text` only.
    RequestPattern withBody(std::string text) const;

    /// Whether a request fits the pattern.
    bool fits(const AskedRequest& asked) const { return !mismatch(asked); }

    /// The first reason why a request does not fit; empty if it fits.
    std::optional<std::string> mismatch(const AskedRequest& asked) const;

    /// How far a request is from fitting: 0 if it fits, larger the less it has in common.
    std::size_t distance(const AskedRequest& asked) const;

    /// As it was written, with headers and body.
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
