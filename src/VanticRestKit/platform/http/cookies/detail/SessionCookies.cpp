#include <VanticRestKit/platform/http/cookies/detail/SessionCookies.h>

#include <VanticRestKit/platform/http/cookies/detail/CookieJar.h>

namespace VanticRestKit::detail {

SessionCookies::SessionCookies(const URLSessionConfiguration& configuration)
    : jar_(configuration.httpCookieStorage ? CookieJar::of(*configuration.httpCookieStorage) : nullptr),
      isAdding_(configuration.httpShouldSetCookies),
      policy_(configuration.httpCookieAcceptPolicy) {}

std::string SessionCookies::headerFor(const URLRequest& request) const {
    const bool isAsked = jar_ && isAdding_ && request.httpShouldHandleCookies() && request.url();
    if (!isAsked || jar_->isEmpty() || request.value("Cookie")) return {};
    return jar_->header(*request.url());
}

void SessionCookies::receive(const std::vector<std::string>& lines, const URLRequest& request,
                             const URLRequest& original) const {
    if (lines.empty() || !jar_ || !request.httpShouldHandleCookies()) return;
    if (request.url() && original.url()) jar_->receive(lines, *request.url(), *original.url(), policy_);
}

}  // namespace VanticRestKit::detail
