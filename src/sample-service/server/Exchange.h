#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit::sample {

/// Keys keep the order in which a route writes them, so that answers are readable.
using JSON = nlohmann::ordered_json;

/// A query item as it was sent; one without "=" has no value.
struct QueryItem {
    std::string name;
    std::optional<std::string> value;
};

/// A request as it arrived, decoded once for all routes.
struct Request {
    std::string method;
    std::string target;                 // path and query as sent, percent-encoding included
    std::vector<std::string> segments;  // of the path, each decoded; empty ones inside the path are dropped
    std::vector<QueryItem> query;       // in the order sent, decoded
    std::vector<std::pair<std::string, std::string>> headers;
    std::string body;
    int peerPort = 0;

    /// The segments joined again, without a leading slash: "v2/video/HL0101".
    std::string path() const;

    /// The value of the first query item of a name; an empty string if there is none.
    std::string queryValue(const std::string& name) const;

    /// The value split at commas; empty if there is none.
    std::vector<std::string> queryValues(const std::string& name) const;
};

/// An answer. If there is a text, it is sent instead of the JSON, since a fault may send invalid JSON.
struct Reply {
    int status = 200;
    std::optional<JSON> body{};
    std::optional<std::string> text{};
    std::string contentType = "application/json";
    std::vector<std::pair<std::string, std::string>> headers{};
    bool last = false;  // the service ends after sending this answer
};

/// A success with this body.
Reply answered(JSON body);

/// A failure in the service's own format.
Reply failure(int status, const std::string& message);

std::vector<std::string> split(const std::string& text, char separator);

/// Parses a request target.
void readTarget(const std::string& target, Request& request);

}  // namespace VanticRestKit::sample
