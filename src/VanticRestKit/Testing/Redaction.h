#pragma once

/// \file
/// `Redaction`: takes tokens out of what is recorded.

#include <VanticRestKit/Testing/AskedRequest.h>

#include <string>
#include <string_view>
#include <vector>

namespace VanticRestKit::Testing {

/// Which values are secrets: those of the headers Authorization, Proxy-Authorization, Cookie and Set-Cookie, and those
/// under a name that contains "token", "secret", "password", "api-key", "apikey", "api_key", "signature" or "session",
/// in any case, `token_type` excepted: of headers, query items, form fields, and strings at any depth of a JSON body. More names can be added.
///
/// Each is replaced by `redacted`, so that two requests that differ in their secrets alone become equal. In a JSON object
/// that holds a token, the number `expiry` becomes the year 2100: the token is still good when it is replayed.
class Redaction {
public:
    /// Stands in place of what is left out.
    static constexpr const char* redacted = "REDACTED";

    Redaction() = default;
    /// Also hides the values under these names, which are compared as a whole and without case: `{{"UID"}}`.
    explicit Redaction(std::vector<std::string> furtherNames);

    /// Whether values under this name are secrets.
    bool hides(std::string_view name) const;

    /// A query or a form without its secrets, with its items in their order.
    std::string query(std::string_view text) const;
    /// A body without its secrets: a JSON document if it is one, a form if `contentType` says so, else as it is. A JSON
    /// document that has none keeps its bytes.
    std::string body(std::string_view text, std::string_view contentType) const;
    /// The value of a header.
    std::string header(std::string_view name, std::string_view value) const;

private:
    std::vector<std::string> furtherNames_{};
};

}  // namespace VanticRestKit::Testing
