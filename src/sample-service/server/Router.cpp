#include "server/Router.h"

#include <optional>

namespace VanticRestKit::sample {

namespace {

bool isCapture(const std::string& segment) { return segment.size() > 2 && segment.front() == '{'; }
bool takesTheRest(const std::string& segment) { return segment.ends_with("...}"); }

std::optional<Captures> match(const std::vector<std::string>& pattern, const std::vector<std::string>& path) {
    Captures captures;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (takesTheRest(pattern[i])) {
            captures.insert(captures.end(),
                            path.begin() + static_cast<std::ptrdiff_t>(std::min(i, path.size())), path.end());
            return captures;
        }
        if (i >= path.size()) return std::nullopt;
        if (isCapture(pattern[i])) {
            if (path[i].empty()) return std::nullopt;
            captures.push_back(path[i]);
        } else if (pattern[i] != path[i]) {
            return std::nullopt;
        }
    }
    if (path.size() != pattern.size()) return std::nullopt;
    return captures;
}

}  // namespace

Router::Router(std::vector<Route> routes) {
    for (auto& route : routes) {
        Request pattern;
        readTarget("/" + route.pattern, pattern);
        entries_.push_back({std::move(route), std::move(pattern.segments)});
    }
}

Reply Router::answer(const Request& request) const {
    const std::string method = request.method == "HEAD" ? "GET" : request.method;
    bool known = false;
    for (const auto& entry : entries_) {
        const auto captures = match(entry.segments, request.segments);
        if (!captures) continue;
        if (entry.route.method == method) return entry.route.answer(request, *captures);
        known = true;
    }
    return known ? failure(405, "Method not allowed") : failure(404, "No such resource");
}

}  // namespace VanticRestKit::sample
