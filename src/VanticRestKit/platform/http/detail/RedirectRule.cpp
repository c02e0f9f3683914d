#include <VanticRestKit/platform/http/detail/HeaderName.h>
#include <VanticRestKit/platform/http/detail/Origin.h>
#include <VanticRestKit/platform/http/detail/RedirectRule.h>

#include <algorithm>
#include <array>
#include <map>
#include <string_view>

namespace VanticRestKit::detail {

namespace {

constexpr std::array<std::string_view, 6> bodyHeaders{"content-type",     "content-length",
                                                      "content-encoding", "content-language",
                                                      "content-location", "content-md5"};

// Headers that do not identify the user, in addition to those that describe the body.
constexpr std::array<std::string_view, 13> neutralHeaders{"accept",
                                                          "accept-charset",
                                                          "accept-encoding",
                                                          "accept-language",
                                                          "cache-control",
                                                          "if-match",
                                                          "if-modified-since",
                                                          "if-none-match",
                                                          "if-range",
                                                          "if-unmodified-since",
                                                          "pragma",
                                                          "range",
                                                          "user-agent"};

template <class Names>
bool isAmong(const Names& names, std::string_view wanted) {
    return std::any_of(names.begin(), names.end(),
                       [wanted](std::string_view name) { return sameHeaderName(name, wanted); });
}

bool becomesGet(std::string_view method, std::int64_t status) {
    if (status == 303) return method != "HEAD";
    return (status == 301 || status == 302) && method == "POST";
}

}  // namespace

URLRequest redirected(const URLRequest& request, std::int64_t status, const URL& target,
                      const std::vector<std::string>& heldBack) {
    URLRequest next = request;
    next.setURL(target);
    if (becomesGet(request.httpMethod().value_or("GET"), status)) {
        next.setHTTPMethod("GET");
        next.setHTTPBody(std::nullopt);
        for (const std::string_view name : bodyHeaders) next.setValue(std::nullopt, name);
    }
    if (!request.url() || originOf(*request.url()) != originOf(target)) {
        const std::map<std::string, std::string> before = next.allHTTPHeaderFields();
        for (const auto& [name, value] : before) {
            const bool mayCross = isAmong(neutralHeaders, name) || isAmong(bodyHeaders, name);
            if (!mayCross || isAmong(heldBack, name)) next.setValue(std::nullopt, name);
        }
    }
    return next;
}

RedirectAction redirectAction(const URLSessionRedirectPolicy& policy, const URL& source, const URL& target) {
    using Follow = URLSessionRedirectPolicy::Follow;
    if (policy.follow == Follow::never) return RedirectAction::deliver;
    const bool leavesOrigin = originOf(source) != originOf(target);
    if (policy.follow == Follow::sameOriginOnly && leavesOrigin) return RedirectAction::deliver;
    const bool losesSecurity = isSecure(source) && !isSecure(target);
    return losesSecurity && !policy.allowsInsecureTarget ? RedirectAction::refuse : RedirectAction::follow;
}

}  // namespace VanticRestKit::detail
