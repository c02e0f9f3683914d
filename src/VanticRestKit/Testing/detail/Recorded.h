#pragma once

/// \file
/// `Recorded`: a request and its answer, and their file format.

#include <VanticRestKit/Testing/Answer.h>
#include <VanticRestKit/Testing/AskedRequest.h>
#include <VanticRestKit/Testing/Redaction.h>

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit::Testing::detail {

/// A request with its secrets redacted.
struct RecordedRequest {
    /// Method, path and query: "GET /v2/search?keyword=sea".
    std::string line{};
    std::map<std::string, std::string> headers{};
    std::string body{};

    static RecordedRequest of(const AskedRequest& asked, const Redaction& redaction);

    /// Identifies the request: everything but its headers.
    std::string key() const { return line + "\n" + body; }
    /// The name of its file, without an extension: "GET_v2_search_1f0c22ab".
    std::string fileName() const;
};

/// A request and its answer. In a file, the lines of the request begin with "> ", and the status and headers of the
/// answer with "< ". The body follows the line "<", up to the end of the file. A transport error is "< error DOMAIN
/// CODE DESCRIPTION".
///
///     > GET /v2/time
///     > Accept: application/json
///     < 200
///     < Content-Type: application/json
///     <
///     1767225600
struct Recorded {
    RecordedRequest request;
    Answer answer;

    std::string text() const;
    /// Parses a file; empty if it does not have this format.
    static std::optional<Recorded> read(std::string_view text);
};

/// Formats JSON with one value per line, changing only white space outside of strings. The input must be JSON.
std::string indented(std::string_view json);

}  // namespace VanticRestKit::Testing::detail
