#include "server/ClientCaching.h"

#include <strings.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <functional>

namespace VanticRestKit::sample {

namespace {

constexpr std::array<std::string_view, 5> ofOneUser{"token", "dataset", "history", "saved", "time"};
constexpr std::array<std::string_view, 5> soonOutdated{"nownext", "livestreams", "messages", "alert",
                                                       "search"};
constexpr std::array<std::string_view, 2> screens{"home", "navigation"};

template <std::size_t count>
bool isOneOf(const std::array<std::string_view, count>& names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// The value of Cache-Control; empty if the answer has none.
std::string_view controlOf(const Request& request, bool behaviourChanges) {
    if (request.segments.empty()) return {};
    const std::string_view first = request.segments.front();
    if (first == "pictures") return "public, max-age=86400";
    if (first == "v3") return "private, max-age=60";
    if (first != "v2" || request.segments.size() < 2) return {};
    const std::string_view kind = request.segments[1];
    if (isOneOf(ofOneUser, kind)) return "private, no-store";
    if (isOneOf(soonOutdated, kind) || (behaviourChanges && !isOneOf(screens, kind)))
        return "private, no-cache";
    return "private, max-age=60";
}

std::string valueOf(const Request& request, const char* name) {
    const auto found =
        std::find_if(request.headers.begin(), request.headers.end(),
                     [name](const auto& field) { return ::strcasecmp(field.first.c_str(), name) == 0; });
    return found == request.headers.end() ? std::string() : found->second;
}

bool names(const std::string& list, std::string_view tag) {
    for (std::string_view each : split(list, ',')) {
        while (each.starts_with(' ')) each.remove_prefix(1);
        while (each.ends_with(' ')) each.remove_suffix(1);
        if (each.starts_with("W/")) each.remove_prefix(2);
        if (each == tag || each == "*") return true;
    }
    return false;
}

void addCookie(const Request& request, Reply& reply) {
    static std::atomic<unsigned> visitors = 0;
    if (valueOf(request, "Cookie").find("visitor=") != std::string::npos) return;
    reply.headers.emplace_back("Set-Cookie", "visitor=" + std::to_string(++visitors) +
                                                 "; Path=/; Max-Age=31536000; HttpOnly; SameSite=Lax");
}

}  // namespace

void describeToCaches(const Request& request, std::string_view text, bool behaviourChanges, Reply& reply) {
    const std::string_view control = controlOf(request, behaviourChanges);
    if (control.empty()) return;
    const bool mayBeKept = control.find("no-store") == std::string_view::npos;
    const bool isPlain = request.method == "GET" && reply.status == 200;
    if (mayBeKept && !isPlain) return;
    reply.headers.emplace_back("Cache-Control", control);
    if (!mayBeKept) return;
    if (request.segments.back() == "home") addCookie(request, reply);
    const std::string tag = '"' + std::to_string(std::hash<std::string_view>()(text)) + '"';
    reply.headers.emplace_back("ETag", tag);
    reply.headers.emplace_back("Vary", "Accept-Encoding, Accept-Language");
    if (!names(valueOf(request, "If-None-Match"), tag)) return;
    reply.status = 304;
    reply.body.reset();
    reply.text.reset();
}

}  // namespace VanticRestKit::sample
