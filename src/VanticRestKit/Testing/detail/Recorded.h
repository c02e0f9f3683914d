#pragma once

/// \file
/// `Recorded`: one request with its answer, as a file holds them.

#include <VanticRestKit/Testing/Answer.h>
#include <VanticRestKit/Testing/AskedRequest.h>
#include <VanticRestKit/Testing/Redaction.h>

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit::Testing::detail {

/// A request without its secrets.
struct RecordedRequest {
    /// "GET /v2/search?keyword=sea"
    std::string line{};
    std::map<std::string, std::string> headers{};
    std::string body{};

    static RecordedRequest of(const AskedRequest& asked, const Redaction& redaction);

    /// What a request is known by again: all but its headers.
    std::string key() const { return line + "\n" + body; }
    /// A name for its file, without an ending: "GET_v2_search_1f0c22ab".
    std::string fileName() const;
};

/// The lines of the request begin with "> ", those of the head of the answer with "< "; what follows the line "<" is the
/// body, to the end of the file. A transport error is "< error DOMAIN CODE DESCRIPTION".
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
    /// Empty if the text is not of that form.
    static std::optional<Recorded> read(std::string_view text);
};

/// JSON with a line for each value. Nothing but white space outside of strings changes; what is no JSON may be damaged.
std::string indented(std::string_view json);

}  // namespace VanticRestKit::Testing::detail
