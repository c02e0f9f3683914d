// Passes the bytes of a response to the readers of its head, directives, dates, cookies, redirect and codings. None may
// crash, and the rules for all responses must hold. An input consists of
//   one byte, which selects the request and the sizes of the body's pieces
//   the lines of the head up to an empty line, each ended by a line feed
//   the body

#include <VanticRestKit/platform/date/detail/HTTPDate.h>
#include <VanticRestKit/platform/http/cache/detail/CacheControl.h>
#include <VanticRestKit/platform/http/cache/detail/CacheRecordForm.h>
#include <VanticRestKit/platform/http/cache/detail/CacheRules.h>
#include <VanticRestKit/platform/http/cache/detail/StoredAnswer.h>
#include <VanticRestKit/platform/http/cache/detail/Vary.h>
#include <VanticRestKit/platform/http/cookies/detail/CookieRules.h>
#include <VanticRestKit/platform/http/cookies/detail/SetCookie.h>
#include <VanticRestKit/platform/http/detail/BodyCollector.h>
#include <VanticRestKit/platform/http/detail/HeaderCollector.h>
#include <VanticRestKit/platform/http/detail/Origin.h>
#include <VanticRestKit/platform/http/detail/RedirectRule.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

using namespace VanticRestKit;
using namespace VanticRestKit::detail;
using namespace std::chrono_literals;

void require(bool holds, const char* rule) {
    if (holds) return;
    std::fprintf(stderr, "broken rule: %s\n", rule);
    std::abort();
}

constexpr std::chrono::milliseconds wall = 1'780'272'000s;
constexpr URLSessionLimits limits{.maxBodyBytesOnWire = 64 * 1024,
                                  .maxBodyBytes = 256 * 1024,
                                  .maxDecodingRatio = 4,
                                  .maxHeaderLineBytes = 512,
                                  .maxHeadBytes = 4096,
                                  .maxHeadLines = 64,
                                  .maxInterimAnswers = 3};

URLRequest requestFor(unsigned choice) {
    constexpr const char* urls[] = {"https://a.example/b/c?d", "http://a.example:81/", "https://[::1]/x"};
    constexpr const char* methods[] = {"GET", "POST", "HEAD", "PUT"};
    URLRequest request(*URL::make(urls[choice % 3]));
    request.setHTTPMethod(methods[choice / 3 % 4]);
    request.setValue("Bearer t", "Authorization");
    request.setValue("a=b", "Cookie");
    request.setValue("a, b ;q=1", "Accept");
    if (choice % 5 == 1) request.setValue("bytes=1-3", "Range");
    if (choice % 5 == 2) request.setValue("max-stale=9, min-fresh=1", "Cache-Control");
    if (choice % 5 == 3) request.setValue("\"x\", W/\"y\"", "If-None-Match");
    if (choice % 7 == 1) request.setHTTPBody(Data("body"));
    return request;
}

void readHead(HeaderCollector& head, std::string_view& rest) {
    std::uint64_t size = 0;
    while (!rest.empty() && !head.isComplete()) {
        const std::size_t end = std::min(rest.find('\n'), rest.size() - 1) + 1;
        head.add(rest.substr(0, end));
        size += end;
        rest.remove_prefix(end);
        require(head.fault() || head.size() == size, "every byte of a head is counted");
    }
    require(head.fault() || head.size() <= limits.maxHeadBytes, "a head keeps its limit");
    for (const auto& [name, value] : head.fields()) {
        require(head.value(name).has_value(), "a field is found by its name");
    }
}

void readDirectives(const HeaderCollector& head) {
    const std::string value = head.value("cache-control").value_or("");
    const CacheControl control = CacheControl::parse(value);
    for (const auto& seconds : {control.maxAge, control.minFresh, control.staleIfError}) {
        require(!seconds || (*seconds >= 0s && *seconds <= maxDeltaSeconds), "a time is within its bounds");
    }
    for (const std::string_view member : listMembers(value)) {
        require(!member.empty() && member.data() >= value.data() &&
                    member.data() + member.size() <= value.data() + value.size(),
                "a member lies in its list");
    }
    for (const char* name : {"date", "expires", "last-modified"}) {
        const auto now = std::chrono::floor<std::chrono::seconds>(wall);
        const auto date = parseHTTPDate(head.value(name).value_or(""), now);
        require(!date || parseHTTPDate(formatHTTPDate(*date), now) == date,
                "a date is read as it is written");
    }
}

void followRedirect(const HeaderCollector& head, const URLRequest& request) {
    if (!isRedirect(head.status()) || !head.location()) return;
    const auto target = URL::make(*head.location(), *request.url());
    if (!target) return;
    const URLSessionRedirectPolicy policy;
    const bool isLessSecure = isSecure(*request.url()) && !isSecure(*target);
    require((redirectAction(policy, *request.url(), *target) == RedirectAction::refuse) == isLessSecure,
            "leaving https is refused, and nothing else");
    const URLRequest next = redirected(request, head.status(), *target);
    if (whyUnusable(next)) return;
    require(next.httpMethod() == request.httpMethod() || next.httpMethod() == "GET",
            "a method becomes GET only");
    require(next.httpMethod() != "GET" || request.httpMethod() == "GET" || !next.httpBody(),
            "GET has no body");
    const bool isSameOrigin = originOf(*target) == originOf(*request.url());
    require(isSameOrigin || (!next.value("Authorization") && !next.value("Cookie")),
            "credentials stay in their origin");
}

void acceptCookies(const HeaderCollector& head, const URLRequest& request) {
    const CookieTarget sender = cookieTargetOf(*request.url());
    for (const std::string& line : head.setCookies()) {
        const auto said = readSetCookie(line);
        const auto cookie = said ? acceptedCookie(*said, sender, Date(wall)) : std::nullopt;
        require(!cookie || canonicalCookie(*cookie) == *cookie, "what is accepted is in the form of a store");
    }
}

struct Decoded {
    bool isGood = true;
    std::string body{};
};

Decoded decode(const HeaderCollector& head, std::string_view coded, std::size_t pieceSize, std::size_t step) {
    BodyCollector body(limits);
    body.expect(head.contentLength(), decodingFor(head.value("content-encoding").value_or("")));
    std::size_t budget = step;
    const auto isBroken = [&](const std::optional<TransportFault>& fault) {
        budget = step;
        return fault.has_value();
    };
    while (!coded.empty()) {
        const std::string_view piece = coded.substr(0, pieceSize);
        coded.remove_prefix(piece.size());
        if (isBroken(body.add(piece, budget))) return {false};
        while (body.hasMore()) {
            if (isBroken(body.decode(budget))) return {false};
        }
    }
    if (body.finish()) return {false};
    const Data plain = body.take();
    require(plain.size() <= limits.maxBodyBytes, "a body keeps its limit");
    return {true, std::string(plain.view())};
}

Decoded readBody(const HeaderCollector& head, std::string_view coded, unsigned choice) {
    const Decoded whole = decode(head, coded, coded.size() + 1, limits.maxBodyBytes);
    // A part can exceed the ratio limit even if the whole does not, so only the content is compared.
    const Decoded pieces = decode(head, coded, 1 + choice % 61, 1 + choice % 4093);
    require(!whole.isGood || !pieces.isGood || whole.body == pieces.body,
            "a body does not depend on its pieces");
    return whole;
}

void keep(const HeaderCollector& head, const URLRequest& request, const std::string& body) {
    const CacheTime came{.wall = wall, .steady = 0s};
    const auto variant = variantOf(head.value("vary").value_or(""), request);
    require(!variant || fitsVariant(*variant, request), "a request fits its own variant");
    const StoredResponse stored({.status = head.status(),
                                 .fields = head.fields(),
                                 .body = Data(body),
                                 .requested = came,
                                 .received = came,
                                 .variant = variant.value_or("")});
    const CacheRequest asked(request);
    const CacheTime later{.wall = wall + 100s, .steady = 100s};
    static_cast<void>(mayStore(asked, stored));
    static_cast<void>(isWorthStoring(stored));
    require(stored.age(later) >= 100s, "an answer gets older");
    require(reuseOf(stored, asked, later) != Reuse::fresh || isFresh(stored, later),
            "what is stale is not fresh");
    if (asked.isAnswerable() && hasRequestedPart(stored, asked)) {
        require(answerOf(stored, asked, later).body.size() <= body.size(),
                "an answer is a part of what is stored");
    }
    const StoredPointer back = responseOf(recordOf("key", stored));
    const bool isStatus = head.status() >= 200 && head.status() <= 999;
    require(!isStatus || (back && back->fields() == stored.fields() && back->lifetime() == stored.lifetime()),
            "a record gives back its answer");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const unsigned choice = data[0];
    std::string_view rest(reinterpret_cast<const char*>(data) + 1, size - 1);
    const URLRequest request = requestFor(choice);
    HeaderCollector head(limits);
    readHead(head, rest);
    readDirectives(head);
    followRedirect(head, request);
    acceptCookies(head, request);
    const Decoded body = readBody(head, rest, choice);
    keep(head, request, body.body);
    static_cast<void>(responseOf({.key = "key", .variant = "", .head = Data(rest), .body = Data()}));
    return 0;
}
