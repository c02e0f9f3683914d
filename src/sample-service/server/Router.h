#pragma once

#include <functional>
#include <string>
#include <vector>

#include "server/Exchange.h"

namespace VanticRestKit::sample {

/// The texts that stood in the places of a pattern's "{name}" segments, in their order.
using Captures = std::vector<std::string>;
using Handler = std::function<Reply(const Request&, const Captures&)>;

/// One row of the service's table of routes. A segment of the pattern is a text to match, or "{name}" for any
/// one segment that is not empty, or "{name...}" at the end for all that is left.
struct Route {
    std::string method;
    std::string pattern;
    Handler answer;
};

/// Answers a request from the first route that matches; 404 where none does, 405 where only the method differs.
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
