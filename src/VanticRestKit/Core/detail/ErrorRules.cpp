#include <VanticRestKit/Core/detail/ErrorRules.h>

#include <VanticRestKit/Core/LoaderError.h>
#include <VanticRestKit/Core/lumenoSDKError.h>
#include <VanticRestKit/Core/NetworkError.h>
#include <VanticRestKit/Core/URLError.h>
#include <VanticRestKit/platform/http/URLErrorCode.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <span>
#include <string>

namespace VanticRestKit::detail {

namespace {

using enum ErrorCategory;

/// The codes from `first` to `last` of one domain.
struct CodeRule {
    std::int64_t first;
    std::int64_t last;
    ErrorRule rule;
};

constexpr ErrorRule once(ErrorCategory category) { return {.category = category, .mayTryAgain = false}; }
constexpr ErrorRule again(ErrorCategory category) { return {.category = category, .mayTryAgain = true}; }
constexpr CodeRule at(std::int64_t code, ErrorRule rule) { return {code, code, rule}; }
constexpr CodeRule at(URLErrorCode code, ErrorRule rule) { return at(static_cast<std::int64_t>(code), rule); }
constexpr CodeRule at(LoaderError::Kind kind, ErrorRule rule) {
    return at(static_cast<std::int64_t>(kind), rule);
}

// In each list the first match applies.

constexpr std::int64_t notConnectedToInternet = -1009;  // only from transports other than this library's
constexpr CodeRule ofTransport[] = {
    at(URLErrorCode::cancelled, once(cancelled)),
    at(URLErrorCode::badURL, once(wrongUse)),
    at(URLErrorCode::timedOut, again(timedOut)),
    at(URLErrorCode::unsupportedURL, once(wrongUse)),
    at(URLErrorCode::cannotFindHost, again(offline)),
    at(URLErrorCode::cannotConnectToHost, again(offline)),
    at(URLErrorCode::networkConnectionLost, again(offline)),
    at(URLErrorCode::httpTooManyRedirects, once(badAnswer)),
    at(URLErrorCode::resourceUnavailable, once(offline)),
    at(notConnectedToInternet, again(offline)),
    at(URLErrorCode::badServerResponse, once(badAnswer)),
    at(URLErrorCode::cannotDecodeRawData, once(badAnswer)),
    at(URLErrorCode::cannotDecodeContentData, once(badAnswer)),
    at(URLErrorCode::cannotParseResponse, once(badAnswer)),
    at(URLErrorCode::appTransportSecurityRequiresSecureConnection, once(insecure)),
    at(URLErrorCode::dataLengthExceedsMaximum, once(badAnswer)),
    at(URLErrorCode::queuedLoadsExceedMaximum, again(tooManyRequests)),
    {-1206, -1200, once(insecure)},
};

constexpr CodeRule ofStatus[] = {
    at(401, once(unauthorized)),
    at(403, once(forbidden)),
    at(404, once(notFound)),
    at(408, again(timedOut)),
    at(410, once(notFound)),
    at(425, again(serverFailed)),
    at(429, again(tooManyRequests)),
    at(451, once(forbidden)),
    {400, 499, once(wrongUse)},
    at(501, once(serverFailed)),
    at(505, once(serverFailed)),
    at(511, again(offline)),  // a network that requires a sign-in first
    {500, 599, again(serverFailed)},
    // No status, or one that does not exist.
    at(1, once(wrongUse)),
    {0, 399, once(badAnswer)},
    {600, std::numeric_limits<std::int64_t>::max(), once(badAnswer)},
};

constexpr CodeRule ofLoader[] = {
    at(LoaderError::Kind::failedToDecode, once(badAnswer)),
    at(LoaderError::Kind::unknownResponse, once(badAnswer)),
    at(LoaderError::Kind::loaderStateError, once(wrongUse)),
};

// 4864 and 4865 are decoding codes, 4866 is the encoding code.
constexpr CodeRule ofCoding[] = {{4864, 4865, once(badAnswer)}, at(4866, once(wrongUse))};

constexpr CodeRule ofMistake[] = {at(0, once(wrongUse))};
constexpr CodeRule ofMissingPart[] = {at(0, once(badAnswer))};

std::span<const CodeRule> rulesOf(const std::string& domain) {
    if (domain == NSURLErrorDomain) return ofTransport;
    if (domain == NetworkError::errorDomain()) return ofStatus;
    if (domain == LoaderError::errorDomain()) return ofLoader;
    if (domain == "NSCocoaErrorDomain") return ofCoding;
    if (domain == URLError::errorDomain()) return ofMistake;
    if (domain == lumenoSDKError::errorDomain()) return ofMissingPart;
    return {};
}

/// The defaults of a category.
bool mayTryAgainAfter(ErrorCategory category) {
    return category == offline || category == timedOut || category == tooManyRequests ||
           category == serverFailed;
}

std::optional<ErrorRule> ruleAmong(std::span<const CodeRule> rules, std::int64_t code) {
    const auto found = std::ranges::find_if(
        rules, [code](const CodeRule& rule) { return rule.first <= code && code <= rule.last; });
    return found == rules.end() ? std::nullopt : std::optional(found->rule);
}

}  // namespace

std::optional<ErrorRule> errorRuleOf(const Error& error) {
    if (const std::optional<ErrorCategory> own = error.errorCategory()) {
        return ErrorRule{.category = *own, .mayTryAgain = mayTryAgainAfter(*own)};
    }
    if (const auto* network = error.as<NetworkError>()) {
        // Its code is that of the underlying error, but its domain is not.
        if (network->kind() == NetworkError::Kind::requestFailed) return std::nullopt;
    }
    const std::string domain = error.domain();
    const std::int64_t code = error.code();
    // A `NetworkError` converted to an `NSError` has the code of the transport.
    if (domain == NetworkError::errorDomain() && code < 0) return ruleAmong(ofTransport, code);
    return ruleAmong(rulesOf(domain), code);
}

}  // namespace VanticRestKit::detail
