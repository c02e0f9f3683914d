#pragma once

// A request of a browser and the answer to it, as the pages see them: without a socket.

#include "Template.h"

#include <VanticRestKit/platform/async/Task.h>
#include <VanticRestKit/VanticRestKit.h>

#include <map>

namespace living_room {

using namespace VanticRestKit;

struct Request {
    std::string method = "GET";
    /// Path and query as the browser sent them.
    std::string target{};
    /// Decoded; begins with a slash.
    std::string path = "/";
    /// The items of the query and of a form in the body. The last one counts if several have the same name.
    std::map<std::string, std::string, std::less<>> fields{};
    /// The headers of these names; empty if absent.
    std::string host{}, origin{}, cookies{};
    /// The status that says why the request cannot be understood; 0 if it can.
    int problem = 0;
    /// Stop is requested when the browser has gone away.
    std::stop_token gone{};

    /// The item with that name; empty if there is none.
    std::string field(std::string_view name) const;
    /// The cookie with that name; empty if there is none.
    std::string cookie(std::string_view name) const;

    /// Sets target, path and fields from a request line and the body that follows it. Returns whether they are valid:
    /// the target must be a path without zero bytes and without steps upwards.
    bool read(std::string target, std::string body);
};

struct Answer {
    int status = 200;
    std::string type = "text/html; charset=utf-8";
    Data body{};
    std::vector<std::pair<std::string, std::string>> headers{};
};

/// A page: the template with that name, filled with `values`.
Answer pageAnswer(std::string_view name, Value values, int status = 200);
/// A part of a screen, with its state: "ready", "empty" or "failed".
Answer partAnswer(std::string_view name, Value values, const char* state = "ready");
/// A part with a sentence that says what is missing.
Answer emptyPart(std::string sentence);
/// A part with tiles in that template, or with a sentence if there are none.
Answer tilesPart(std::string_view name, Value tiles, std::string sentenceIfNone);
/// Sends the browser to another address with GET, as after a form.
Answer seeOther(std::string address);

/// Whether `text` has only ASCII letters, digits and the characters of `others`.
bool isPlain(std::string_view text, std::string_view others);
/// The number that `text` is; empty if it is not a whole number or is negative.
std::optional<std::int64_t> numberIn(std::string_view text);

}  // namespace living_room
