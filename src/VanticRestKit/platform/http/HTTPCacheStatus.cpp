#include <VanticRestKit/platform/http/HTTPCacheStatus.h>

namespace VanticRestKit {

namespace {

const char* nameOf(HTTPCacheStatus::Forwarding forwarding) {
    switch (forwarding) {
        case HTTPCacheStatus::Forwarding::none: break;
        case HTTPCacheStatus::Forwarding::bypass: return "bypass";
        case HTTPCacheStatus::Forwarding::method: return "method";
        case HTTPCacheStatus::Forwarding::uriMiss: return "uri-miss";
        case HTTPCacheStatus::Forwarding::varyMiss: return "vary-miss";
        case HTTPCacheStatus::Forwarding::request: return "request";
        case HTTPCacheStatus::Forwarding::stale: return "stale";
        case HTTPCacheStatus::Forwarding::partial: return "partial";
    }
    return nullptr;
}

}  // namespace

std::optional<std::string> HTTPCacheStatus::text() const {
    if (!hasCache) return std::nullopt;
    std::string text = "VanticRestKit";
    if (const char* const reason = nameOf(forwarding)) {
        text.append("; fwd=").append(reason);
        if (forwardedStatus) text.append("; fwd-status=").append(std::to_string(*forwardedStatus));
        if (isStored) text += "; stored";
    } else {
        text += "; hit";
    }
    if (timeToLive) text.append("; ttl=").append(std::to_string(timeToLive->count()));
    return text;
}

}  // namespace VanticRestKit
