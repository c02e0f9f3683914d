#pragma once

#include <functional>
#include <string>
#include <vector>

#include "server/Exchange.h"

namespace VanticRestKit::sample {

/// The values of a pattern's "{name}" segments, in order.
using Captures = std::vector<std::string>;
using Handler = std::function<Reply(const Request&, const Captures&)>;

/// One row of the service's table of routes. A segment of the pattern is a string to match, "{name}" for any one
/// non-empty segment, or "{name...}" at the end for all remaining segments.
struct Route {
    std::string method;
    std::string pattern;
    Handler answer;
};

/// Answers a request by the first matching route; 404 if there is none, 405 if only the method differs.
class Router {
public:
    explicit Router(std::vector<Route> routes);

    Reply answer(const Request& request) const;

private:
    struct Entry {
        Route route;
        std::vector<std::string> segments;
    };
    std::vector<Entry> entries_;
};

}  // namespace VanticRestKit::sample
