#include <VanticRestKit/platform/http/cookies/detail/CookieHost.h>

#include <VanticRestKit/platform/http/cookies/detail/Punycode.h>
#include <VanticRestKit/platform/http/detail/HeaderName.h>
#include <VanticRestKit/platform/http/detail/Origin.h>
#include <VanticRestKit/platform/text/detail/LetterCase.h>

#include <algorithm>

namespace VanticRestKit::detail {

namespace {

bool isASCII(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::string canonicalLabel(std::string_view label) {
    if (isASCII(label)) return asciiLowered(label);
    std::string lowered = lowercased(label);
    const auto encoded = punycode(lowered);
    return encoded ? "xn--" + *encoded : lowered;
}

}  // namespace

std::string canonicalHost(std::string_view host) {
    if (isASCII(host)) return asciiLowered(host);
    std::string canonical;
    while (true) {
        const auto dot = host.find('.');
        canonical += canonicalLabel(host.substr(0, dot));
        if (dot == std::string_view::npos) return canonical;
        canonical += '.';
        host.remove_prefix(dot + 1);
    }
}

bool isIPAddress(const std::string& host) {
    if (host.find(':') != std::string::npos) return true;
    // Resolvers read names such as "127.1" and "0x7f000001" as addresses too.
    std::string_view last = host;
    if (last.ends_with('.')) last.remove_suffix(1);
    last = last.substr(last.find_last_of('.') + 1);
    if (last.starts_with("0x")) last = "0";
    return !last.empty() &&
           std::all_of(last.begin(), last.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool domainMatches(std::string_view host, std::string_view domain) {
    if (host == domain) return true;
    if (domain.empty() || host.size() <= domain.size() || !host.ends_with(domain)) return false;
    return host[host.size() - domain.size() - 1] == '.' && !isIPAddress(std::string(host));
}

bool pathMatches(std::string_view path, std::string_view cookiePath) {
    if (!path.starts_with(cookiePath)) return false;
    return path.size() == cookiePath.size() || cookiePath.ends_with('/') || path[cookiePath.size()] == '/';
}

std::string defaultPath(std::string_view path) {
    const auto slash = path.find_last_of('/');
    if (!path.starts_with('/') || slash == 0) return "/";
    return std::string(path.substr(0, slash));
}

CookieTarget cookieTargetOf(const URL& url) {
    CookieTarget target{.host = canonicalHost(url.host().value_or("")),
                        .path = url.percentEncodedPath(),
                        .isSecure = isSecure(url)};
    if (target.path.empty()) target.path += '/';
    return target;
}

}  // namespace VanticRestKit::detail
