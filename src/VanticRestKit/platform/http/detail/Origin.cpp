#include <VanticRestKit/platform/http/detail/HeaderName.h>
#include <VanticRestKit/platform/http/detail/Origin.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

namespace VanticRestKit::detail {

namespace {

constexpr std::int64_t maxPort = 65535;

// CONNECT opens a tunnel and PRI starts HTTP/2 instead of getting a response; TRACE makes the server echo the
// credentials.
constexpr std::array<std::string_view, 3> refusedMethods{"CONNECT", "TRACE", "PRI"};

std::optional<TransportFault> methodFault(std::string_view method) {
    const auto bad = [](std::string text) {
        return TransportFault{.code = URLErrorCode::badURL, .description = std::move(text)};
    };
    if (!isToken(method)) return bad("The method of the request is malformed.");
    // Some servers ignore the case of methods.
    for (const std::string_view refused : refusedMethods) {
        if (sameHeaderName(method, refused)) {
            return bad("The method " + std::string(refused) + " is not supported.");
        }
    }
    return std::nullopt;
}

/// `name` shortened for a message, with control characters replaced.
std::string printable(std::string_view name) {
    constexpr std::size_t maxSize = 64;
    std::string text;
    for (const char c : name.substr(0, maxSize)) text += c < ' ' || c > '~' ? '?' : c;
    return name.size() > maxSize ? text + "..." : text;
}

}  // namespace

std::string_view beginningOf(const URL& url) {
    const std::string_view text = url.absoluteString();
    const auto authority = text.find("://");
    if (authority == std::string_view::npos) return {};
    const auto path = std::find_if(text.begin() + static_cast<std::ptrdiff_t>(authority) + 3, text.end(),
                                   [](char c) { return c == '/' || c == '?' || c == '#'; });
    return text.substr(0, static_cast<std::size_t>(path - text.begin()));
}

bool beginsWith(const URL& url, std::string_view beginning) {
    const std::string_view text = url.absoluteString();
    if (beginning.empty() || !text.starts_with(beginning)) return false;
    if (text.size() == beginning.size()) return true;
    const char next = text[beginning.size()];
    return next == '/' || next == '?' || next == '#';
}

bool isSecure(const URL& url) { return sameHeaderName(url.scheme().value_or(""), "https"); }

std::string originOf(const URL& url) {
    const bool secure = isSecure(url);
    std::string origin = asciiLowered(url.scheme().value_or(""));
    origin += "://";
    origin += asciiLowered(url.host().value_or(""));
    origin += ':';
    origin += std::to_string(url.port().value_or(secure ? 443 : 80));
    return origin;
}

const std::string& OriginMemo::of(const URL& url) {
    if (!knows(url)) {
        beginning_ = beginningOf(url);
        origin_ = originOf(url);
    }
    return origin_;
}

std::optional<TransportFault> whyUnusable(const URLRequest& request) {
    if (!request.url()) return TransportFault{URLErrorCode::badURL, "The request has no URL."};
    const URL& url = *request.url();
    if (!isSecure(url) && !sameHeaderName(url.scheme().value_or(""), "http")) {
        return TransportFault{URLErrorCode::unsupportedURL, "The URL's scheme is neither http nor https."};
    }
    if (!url.host()) return TransportFault{URLErrorCode::badURL, "The URL has no host."};
    if (const auto port = url.port(); port && (*port < 1 || *port > maxPort)) {
        return TransportFault{URLErrorCode::badURL, "The URL's port is invalid."};
    }
    if (auto fault = methodFault(request.httpMethod().value_or("GET"))) return fault;
    if (const auto name = request.malformedHeaderField()) {
        return TransportFault{.code = URLErrorCode::badURL,
                              .description = "The name or the value of the header \"" + printable(*name) +
                                             "\" cannot be sent."};
    }
    return std::nullopt;
}

}  // namespace VanticRestKit::detail
