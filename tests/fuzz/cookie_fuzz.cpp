// Passes Set-Cookie values to the cookie reader. It must not crash, and accepted cookies must obey the rules for
// cookies. The first byte of an input selects the URL of the sender. Each line of the rest is one value.

#include <VanticRestKit/platform/http/cookies/detail/CookieFileText.h>
#include <VanticRestKit/platform/http/cookies/detail/CookieHost.h>
#include <VanticRestKit/platform/http/cookies/detail/CookieRules.h>
#include <VanticRestKit/platform/http/cookies/detail/CookieStore.h>
#include <VanticRestKit/platform/http/cookies/detail/SetCookie.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <string_view>
#include <vector>

namespace {

using namespace VanticRestKit;
using namespace VanticRestKit::detail;

void require(bool holds, const char* rule) {
    if (holds) return;
    std::fprintf(stderr, "broken rule: %s\n", rule);
    std::abort();
}

const Date now{std::chrono::seconds(1'300'000'000)};

void requireAllowed(const HTTPCookie& cookie, const CookieTarget& sender) {
    require(!cookie.name.empty() && cookie.name.find_first_of("=;") == std::string::npos,
            "a name is not empty and has no separator");
    require(cookie.value.find(';') == std::string::npos, "a value has no separator");
    require(!hasControlCharacter(cookie.name + cookie.value + cookie.path), "no control character is stored");
    require(cookie.name.size() + cookie.value.size() <= maxCookieSize, "no cookie is larger than the limit");
    require(domainMatches(sender.host, cookie.domain), "a cookie is for its sender");
    require(cookie.includesSubdomains || cookie.domain == sender.host,
            "without subdomains it is for its sender alone");
    require(cookie.path.starts_with('/'), "a path begins with a slash");
    require(sender.isSecure || !cookie.isSecure, "no Secure cookie comes over http");
    require(canonicalCookie(cookie) == cookie, "what is accepted is in the form of a store");
}

void storeAndSend(const std::vector<HTTPCookie>& cookies, const CookieTarget& sender) {
    CookieStore store({.perDomain = 4, .total = 6});
    std::vector<HTTPCookie> lasting;
    for (const HTTPCookie& cookie : cookies) {
        static_cast<void>(store.wouldHideSecureCookie(cookie, now));
        const bool isKept = store.set(cookie, now);
        require(!isKept || !cookie.expiresDate || *cookie.expiresDate > now, "no expired cookie is stored");
        require(store.count() <= 6, "a store keeps its limit");
        if (cookie.expiresDate) lasting.push_back(cookie);
    }
    const auto sent = store.matching(sender, now);
    for (std::size_t i = 1; i < sent.size(); ++i) {
        require(sent[i - 1]->path.size() >= sent[i]->path.size(), "longer paths come first");
    }
    require(readCookieFileText(cookieFileText(lasting)) == lasting, "a file gives back its cookies");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr const char* urls[] = {"http://home.example.org/a/b",
                                    "https://home.example.org/a;b/",
                                    "http://127.0.0.1/",
                                    "http://[::1]/x",
                                    "https://www.d\xC3\xBCrer.example/",
                                    "http://localhost/",
                                    "http://a.co.uk/"};
    if (size == 0) return 0;
    const auto url = URL::make(urls[data[0] % std::size(urls)]);
    require(url.has_value(), "a URL of the list is one");
    const CookieTarget sender = cookieTargetOf(*url);
    std::string_view rest(reinterpret_cast<const char*>(data) + 1, size - 1);
    std::vector<HTTPCookie> cookies;
    while (!rest.empty()) {
        const auto end = rest.find('\n');
        const auto said = readSetCookie(rest.substr(0, end));
        const auto cookie = said ? acceptedCookie(*said, sender, now) : std::nullopt;
        if (cookie) {
            requireAllowed(*cookie, sender);
            cookies.push_back(*cookie);
        }
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    }
    storeAndSend(cookies, sender);
    return 0;
}
