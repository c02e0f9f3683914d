#include "server/Origin.h"

#include <strings.h>

namespace VanticRestKit::sample {

namespace {

std::string headerOf(const Request& request, const char* name) {
    for (const auto& [header, value] : request.headers) {
        if (strcasecmp(header.c_str(), name) == 0) return value;
    }
    return {};
}

}  // namespace

std::string originOf(const Request& request, bool secure) {
    std::string scheme = headerOf(request, "X-Forwarded-Proto");
    if (scheme.empty()) scheme = secure ? "https" : "http";
    return scheme + "://" + headerOf(request, "Host");
}

void fillOrigin(JSON& value, const std::string& origin) {
    if (value.is_structured()) {
        for (auto& member : value) fillOrigin(member, origin);
    } else if (value.is_string()) {
        auto& text = value.get_ref<std::string&>();
        if (text.starts_with(ownOrigin)) text.replace(0, ownOrigin.size(), origin);
    }
}

}  // namespace VanticRestKit::sample
