#include <VanticRestKit/platform/http/curl/detail/EasySetup.h>
#include <VanticRestKit/platform/http/curl/detail/GlobalInit.h>
#include <VanticRestKit/platform/http/curl/detail/Options.h>
#include <VanticRestKit/platform/http/detail/Origin.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace VanticRestKit::detail {

namespace {

// libcurl searches all cached addresses whenever it adds one. With many hosts that would cost more than the cache
// saves.
std::chrono::seconds addressCacheTime(const Admission& admission, std::chrono::seconds usual) {
    constexpr std::size_t maxOriginsWithCache = 512;
    if (admission.originCount() > maxOriginsWithCache) return {};
    return std::clamp(usual, std::chrono::seconds(0),
                      std::chrono::seconds(std::numeric_limits<std::int32_t>::max()));
}

void setConnection(Options& options, const Exchange& exchange, HTTPVersionPreference preference,
                   bool onNewConnection) {
    const bool mayMultiplex = isSecure(*exchange.request().url()) &&
                              preference == HTTPVersionPreference::http2OverTLS && libcurlHasHTTP2();
    options.set(CURLOPT_HTTP_VERSION,
                static_cast<long>(mayMultiplex ? CURL_HTTP_VERSION_2TLS : CURL_HTTP_VERSION_1_1));
    options.set(CURLOPT_PIPEWAIT, mayMultiplex ? 1L : 0L);
    options.set(CURLOPT_FRESH_CONNECT, onNewConnection ? 1L : 0L);
    // Not our deadline: the time that libcurl divides among the addresses of a host.
    constexpr std::chrono::hours maxInterval{24};
    const auto limit = std::min<Clock::duration>(exchange.interval(), maxInterval);
    const auto milliseconds = std::chrono::ceil<std::chrono::milliseconds>(limit).count();
    options.set(CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(milliseconds));
}

// Whether a handle from the pool can be used without setting further options, and can be reused afterwards.
bool isPlainGet(const URLRequest& request) {
    return request.httpMethod() == "GET" && !request.httpBody() && !request.url()->user();
}

void setBody(Options& options, const Data& body) {
    // libcurl reads it in place; the exchange keeps it.
    options.set(CURLOPT_POSTFIELDS, body.data());
    options.set(CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(body.size()));
    // Enables the progress callback for the upload. Without a body it would only cost calls.
    options.set(CURLOPT_NOPROGRESS, 0L);
}

void setMethodAndBody(Options& options, const URLRequest& request) {
    const std::string method = request.httpMethod().value_or("GET");
    // These three methods always send a Content-Length.
    const bool wantsBody = method == "POST" || method == "PUT" || method == "PATCH";
    if (method == "HEAD") {
        options.set(CURLOPT_NOBODY, 1L);
        return;
    }
    if (request.httpBody()) {
        setBody(options, *request.httpBody());
    } else if (wantsBody) {
        options.set(CURLOPT_POSTFIELDS, "");
        options.set(CURLOPT_POSTFIELDSIZE_LARGE, curl_off_t{0});
    } else {
        options.set(CURLOPT_HTTPGET, 1L);
    }
    options.set(CURLOPT_CUSTOMREQUEST, method.c_str());
}

}  // namespace

bool prepareEasy(Attempt& attempt, const URLSessionConfiguration& configuration, bool onNewConnection) {
    const URLRequest& request = attempt.exchange.request();
    EasyHandle& handle = *attempt.handle;
    if (!handle.isGood() || !request.url() || attempt.headerLines == nullptr) return false;
    handle.attempt = &attempt;
    handle.isUsedUp = !isPlainGet(request);
    Options options(handle.get());
    setConnection(options, attempt.exchange, configuration.httpVersionPreference, onNewConnection);
    attempt.addressCacheTime = addressCacheTime(attempt.surroundings.admission, configuration.dnsCacheTime);
    options.set(CURLOPT_DNS_CACHE_TIMEOUT, static_cast<long>(attempt.addressCacheTime.count()));
    if (!attempt.surroundings.admission.knowsAddress(attempt.exchange, attempt.surroundings.now)) {
        handle.forgetAddressOf(*request.url());
    }
    if (handle.isUsedUp) setMethodAndBody(options, request);
    options.set(CURLOPT_HTTPHEADER, attempt.headerLines.get());
    return options.areAccepted() && handle.goTo(*request.url());
}

}  // namespace VanticRestKit::detail
