#include <VanticRestKit/platform/http/detail/HeaderName.h>
#include <VanticRestKit/platform/http/detail/Origin.h>
#include <VanticRestKit/platform/http/detail/ProxyRule.h>

#include <algorithm>
#include <string_view>

namespace VanticRestKit::detail {

namespace {

bool isAddress(std::string_view host) {
    return host.find(':') != std::string_view::npos ||
           std::all_of(host.begin(), host.end(), [](char c) { return c == '.' || (c >= '0' && c <= '9'); });
}

bool covers(std::string_view exception, std::string_view host) {
    if (exception == "*") return true;
    if (exception.starts_with('.')) exception.remove_prefix(1);
    if (sameHeaderName(exception, host)) return true;
    if (isAddress(host) || exception.empty() || host.size() <= exception.size()) return false;
    const std::string_view end = host.substr(host.size() - exception.size());
    return sameHeaderName(exception, end) && host[host.size() - exception.size() - 1] == '.';
}

}  // namespace

std::optional<TransportFault> whyUnusable(const URLSessionProxy& proxy) {
    const auto address = URL::make(proxy.url);
    const bool isUsable = address && address->host() &&
                          (isSecure(*address) || sameHeaderName(address->scheme().value_or(""), "http"));
    if (isUsable) return std::nullopt;
    return TransportFault{.code = URLErrorCode::badURL,
                          .description = "The address of the proxy is not one of http or https."};
}

bool goesThrough(const URLSessionProxy& proxy, const URL& url) {
    const std::string host = url.host().value_or("");
    return std::none_of(proxy.exceptions.begin(), proxy.exceptions.end(),
                        [&host](const std::string& exception) { return covers(exception, host); });
}

std::string absoluteTarget(const URL& url) {
    const std::string_view beginning = beginningOf(url);
    const auto authority = beginning.find("://") + 3;
    const auto user = beginning.rfind('@');
    std::string target(beginning.substr(0, authority));
    target += beginning.substr(user == std::string_view::npos ? authority : user + 1);
    target += url.requestTarget();
    return target;
}

}  // namespace VanticRestKit::detail
