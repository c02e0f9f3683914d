#include <VanticRestKit/platform/http/curl/detail/ExchangeMetrics.h>

#include <VanticRestKit/platform/http/curl/detail/Exchange.h>
#include <VanticRestKit/platform/http/detail/RecordOf.h>

#include <curl/curl.h>

#include <algorithm>
#include <utility>

namespace VanticRestKit::detail {

namespace {

using Duration = RequestMetrics::Duration;

std::int64_t numberOf(CURL* easy, CURLINFO info) {
    curl_off_t value = 0;
    curl_easy_getinfo(easy, info, &value);
    return value;
}

long smallNumberOf(CURL* easy, CURLINFO info) {
    long value = 0;
    curl_easy_getinfo(easy, info, &value);
    return value;
}

/// From `from` to `to`, both counted from the start of the request. Empty if `to` did not come.
std::optional<Duration> between(Duration from, Duration to) {
    if (to == Duration::zero()) return std::nullopt;
    return std::max(to - from, Duration::zero());
}

const char* protocolOf(long version) {
    switch (version) {
        case CURL_HTTP_VERSION_1_0: return "http/1.0";
        case CURL_HTTP_VERSION_1_1: return "http/1.1";
        case CURL_HTTP_VERSION_2_0: return "h2";
        case CURL_HTTP_VERSION_3: return "h3";
        default: return "";
    }
}

}  // namespace

void ExchangeMetrics::sent() {
    if (std::exchange(isSent_, true)) return;
    queued_ = sinceStart(begun_);
}

void ExchangeMetrics::read(const Attempt& attempt) {
    CURL* const easy = attempt.handle->get();
    const Duration lookup(numberOf(easy, CURLINFO_NAMELOOKUP_TIME_T));
    const Duration connect(numberOf(easy, CURLINFO_CONNECT_TIME_T));
    const Duration tls(numberOf(easy, CURLINFO_APPCONNECT_TIME_T));
    const Duration ready(numberOf(easy, CURLINFO_PRETRANSFER_TIME_T));
    figures_ = {};
    figures_.isNewConnection = !attempt.opened.empty();
    figures_.queued = queued_;
    if (figures_.isNewConnection) {
        figures_.lookup = between(Duration::zero(), lookup);
        figures_.connect = between(lookup, connect);
        figures_.tls = between(connect, tls);
    } else {
        // All that libcurl did until then was to wait for the connection.
        figures_.queued += ready;
    }
    figures_.firstByte = between(ready, Duration(numberOf(easy, CURLINFO_STARTTRANSFER_TIME_T)));
    figures_.bodyBytesSent = numberOf(easy, CURLINFO_SIZE_UPLOAD_T);
    figures_.headBytesReceived = smallNumberOf(easy, CURLINFO_HEADER_SIZE);
    figures_.bodyBytesReceived = numberOf(easy, CURLINFO_SIZE_DOWNLOAD_T);
    if (!attempt.hasHead) return;
    figures_.status = attempt.head.status();
    figures_.protocol = protocolOf(smallNumberOf(easy, CURLINFO_HTTP_VERSION));
}

void ExchangeMetrics::redirected(const URLRequest& request) {
    Outcome outcome;
    ended(request, outcome);
    ended_ = std::move(outcome.metrics);
    begun_ = Clock::now();
    isSent_ = false;
    queued_ = {};
    ++redirects_;
}

void ExchangeMetrics::ended(const URLRequest& request, Outcome& outcome) {
    RequestMetrics known = recordOf(request, outcome);
    RequestMetrics& record = figures_;
    if (!isSent_) record = {.queued = sinceStart(begun_)};
    record.method = std::move(known.method);
    record.url = std::move(known.url);
    record.error = std::move(known.error);
    record.bodyBytesDecoded = known.bodyBytesDecoded;
    record.redirects = redirects_;
    record.total = sinceStart(begun_);
    ended_.push_back(std::exchange(figures_, {}));
    outcome.metrics = std::move(ended_);
}

}  // namespace VanticRestKit::detail
