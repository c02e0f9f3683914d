#pragma once

/// \file
/// `Redaction`: removes tokens and other secrets from recordings.

#include <VanticRestKit/Testing/AskedRequest.h>

#include <string>
#include <string_view>
#include <vector>

namespace VanticRestKit::Testing {

/// Determines which values are secret: those of the headers Authorization, Proxy-Authorization, Cookie and Set-Cookie,
/// and those whose name contains "token", "secret", "password", "api-key", "apikey", "api_key", "signature" or
/// "session", ignoring case, except `token_type`. This applies to headers, query items, form fields, and strings at any
/// depth of a JSON body. More names can be added.
///
/// Each secret is replaced by `redacted`, so that two requests that differ only in their secrets become equal. In a
/// JSON object that contains a token, the number `expiry` is set to the year 2100, so that the token is still valid
/// when it is replayed.
class Redaction {
public:
    /// The replacement for secrets.
    static constexpr const char* redacted = "REDACTED";

    Redaction() = default;
    /// Also redacts the values with these names, which are compared as a whole and ignoring case: `{{"UID"}}`.
    explicit Redaction(std::vector<std::string> furtherNames);

    /// Whether values with this name are secret.
    bool hides(std::string_view name) const;

    /// A query or form with its secrets redacted, in the same order.
    std::string query(std::string_view text) const;
    /// A body with its secrets redacted, if it is a JSON document or, according to `contentType`, a form; otherwise
    /// unchanged. A JSON document without secrets is also unchanged.
    std::string body(std::string_view text, std::string_view contentType) const;
    /// The value of a header, redacted if it is secret.
    std::string header(std::string_view name, std::string_view value) const;

private:
    std::vector<std::string> furtherNames_{};
};

}  // namespace VanticRestKit::Testing
