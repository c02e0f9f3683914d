#include <VanticRestKit/platform/http/detail/Origin.h>
#include <VanticRestKit/platform/http/detail/RedirectRule.h>

#include <array>
#include <string_view>

namespace VanticRestKit::detail {

namespace {

constexpr std::array<std::string_view, 6> ofTheBody{"content-type",     "content-length",
                                                    "content-encoding", "content-language",
                                                    "content-location", "content-md5"};

// What proves to a server who is asking, and the host name that was meant for it.
constexpr std::array<std::string_view, 7> ofTheOrigin{
    "authorization", "proxy-authorization", "cookie", "cookie2", "x-api-key", "x-auth-token", "host"};

bool becomesGet(std::string_view method, std::int64_t status) {
    if (status == 303) return method != "HEAD";
    return (status == 301 || status == 302) && method == "POST";
}

}  // namespace

URLRequest redirected(const URLRequest& request, std::int64_t status, const URL& target) {
    URLRequest next = request;
    next.setURL(target);
    if (becomesGet(request.httpMethod().value_or("GET"), status)) {
        next.setHTTPMethod("GET");
        next.setHTTPBody(std::nullopt);
        for (const std::string_view name : ofTheBody) next.setValue(std::nullopt, name);
    }
    if (!request.url() || originOf(*request.url()) != originOf(target)) {
        for (const std::string_view name : ofTheOrigin) next.setValue(std::nullopt, name);
    }
    return next;
}

}  // namespace VanticRestKit::detail
