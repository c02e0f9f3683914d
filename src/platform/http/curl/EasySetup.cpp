#include <VanticRestKit/platform/http/curl/detail/Callbacks.h>
#include <VanticRestKit/platform/http/curl/detail/EasySetup.h>
#include <VanticRestKit/platform/http/curl/detail/Options.h>
#include <VanticRestKit/platform/http/detail/Origin.h>

#include <algorithm>
#include <chrono>

namespace VanticRestKit::detail {

namespace {

// Larger pieces, fewer calls; each request under way has one such buffer.
constexpr long receiveBuffer = 64 * 1024;

void setConduct(Options& options) {
    options.set(CURLOPT_NOSIGNAL, 1L);
    // A lookup that is still under way must not hold up the I/O thread when its request is cancelled.
    options.set(CURLOPT_QUICK_EXIT, 1L);
    options.set(CURLOPT_PROTOCOLS_STR, "http,https");
    // A path goes out as it was built, dot segments included.
    options.set(CURLOPT_PATH_AS_IS, 1L);
    // An empty text, not null: null would have the environment's proxies count.
    options.set(CURLOPT_PROXY, "");
    options.set(CURLOPT_NETRC, static_cast<long>(CURL_NETRC_IGNORED));
    // Redirects and content codings are ours: libcurl keeps a method where it must not, and takes a body for
    // whole whose coding is not.
    options.set(CURLOPT_FOLLOWLOCATION, 0L);
    options.set(CURLOPT_HTTP_CONTENT_DECODING, 0L);
    // A handle that still has the buffer of an earlier request keeps it.
    options.trySet(CURLOPT_BUFFERSIZE, receiveBuffer);
}

void setSecurity(Options& options, const EasySettings& settings) {
    options.set(CURLOPT_SSL_VERIFYPEER, 1L);
    options.set(CURLOPT_SSL_VERIFYHOST, 2L);
    options.set(CURLOPT_SSLVERSION, static_cast<long>(CURL_SSLVERSION_TLSv1_2));
    if (!settings.caBundlePath) return;
    options.set(CURLOPT_CAINFO, settings.caBundlePath->c_str());
    // Else the system's folder of certificates would count beside the file.
    options.set(CURLOPT_CAPATH, static_cast<const char*>(nullptr));
}

void setConnection(Options& options, const Exchange& exchange, bool onNewConnection) {
    const bool secure = isSecure(*exchange.request().url());
    options.set(CURLOPT_HTTP_VERSION,
                static_cast<long>(secure ? CURL_HTTP_VERSION_2TLS : CURL_HTTP_VERSION_1_1));
    options.set(CURLOPT_PIPEWAIT, secure ? 1L : 0L);
    options.set(CURLOPT_FRESH_CONNECT, onNewConnection ? 1L : 0L);
    // Not our deadline, but what libcurl shares out among the addresses of a host.
    constexpr std::chrono::hours most{24};
    const auto limit = std::min<Clock::duration>(exchange.interval(), most);
    const auto milliseconds = std::chrono::ceil<std::chrono::milliseconds>(limit).count();
    options.set(CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(milliseconds));
}

void setBody(Options& options, const Data& body) {
    // libcurl reads it in place; the exchange keeps it.
    options.set(CURLOPT_POSTFIELDS, body.data());
    options.set(CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(body.size()));
}

void setMethodAndBody(Options& options, const URLRequest& request) {
    const std::string method = request.httpMethod().value_or("GET");
    // These three always say how long their body is.
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

bool prepareEasy(Attempt& attempt, const EasySettings& settings, bool onNewConnection) {
    const URLRequest& request = attempt.exchange.request();
    if (attempt.easy == nullptr || !request.url()) return false;
    attempt.headerLines = headerLinesOf(request);
    Options options(attempt.easy);
    setConduct(options);
    setSecurity(options, settings);
    setConnection(options, attempt.exchange, onNewConnection);
    setMethodAndBody(options, request);
    options.set(CURLOPT_HTTPHEADER, attempt.headerLines.get());
    options.set(CURLOPT_URL, request.url()->absoluteString().c_str());
    return options.areTaken() && installCallbacks(attempt);
}

}  // namespace VanticRestKit::detail
