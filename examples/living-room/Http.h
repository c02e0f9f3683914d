#pragma once

// A request of a browser and the answer to it, as the pages see them: without a socket.

#include "Template.h"

#include <VanticRestKit/platform/async/Task.h>
#include <VanticRestKit/VanticRestKit.h>

#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace living_room {

using namespace VanticRestKit;

/// The items of a query or of a form. The last one counts of several with one name.
using Fields = std::map<std::string, std::string, std::less<>>;

struct Request {
    std::string method = "GET";
    /// Decoded; always with a slash at its front.
    std::string path = "/";
    Fields query{};
    /// The body of a form that was posted.
    Fields form{};
    /// By their names in small letters.
    Fields headers{};
    /// Why the request cannot be understood, as a status; 0 if it can.
    int problem = 0;
    /// Stop is requested when the browser has gone away.
    std::stop_token gone{};

    /// The value of a query item; empty if there is none.
    std::string queried(std::string_view name) const;
    std::string posted(std::string_view name) const;
    std::string header(std::string_view name) const;
    /// The value of the cookie of that name; empty if there is none.
    std::string cookie(std::string_view name) const;
};

struct Answer {
    int status = 200;
    std::string type = "text/html; charset=utf-8";
    Data body{};
    std::vector<std::pair<std::string, std::string>> headers{};
};

/// A page: the template of that name, filled with `value`.
Answer pageAnswer(std::string_view name, const Value& value, int status = 200);
/// A part of a screen, with its state: "ready", "empty" or "failed".
Answer partAnswer(std::string_view name, const Value& value, const char* state = "ready");
/// A part with a sentence in place of what is not there.
Answer emptyPart(const char* sentence);
/// Leads the browser on with GET, as after a form.
Answer seeOther(std::string address);

/// Sets path and query of `request` from the target of a request line. Whether that is one: a path without broken
/// escapes, zero bytes and steps upwards.
bool readTarget(const std::string& target, Request& request);
/// Sets the form of `request` from the body that a browser sent. Whether that is one.
bool readForm(std::string body, Request& request);

}  // namespace living_room
