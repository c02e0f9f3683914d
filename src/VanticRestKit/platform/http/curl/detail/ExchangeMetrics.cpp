#include <VanticRestKit/platform/http/curl/detail/ExchangeMetrics.h>

#include <VanticRestKit/platform/http/curl/detail/Exchange.h>
#include <VanticRestKit/platform/http/detail/Records.h>

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

/// The time between two points, both measured from the start of the request. Empty if `to` was not reached.
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

void ExchangeMetrics::resumed(Clock::time_point now) {
    if (!heldBackSince_) return;
    records_.back().heldBack += std::chrono::duration_cast<Duration>(now - *heldBackSince_);
    heldBackSince_.reset();
}

void ExchangeMetrics::read(const Attempt& attempt) {
    if (!isSent_) return;
    CURL* const easy = attempt.handle->get();
    RequestMetrics& record = records_.back();
    const Duration lookup(numberOf(easy, CURLINFO_NAMELOOKUP_TIME_T));
    const Duration connect(numberOf(easy, CURLINFO_CONNECT_TIME_T));
    const Duration tls(numberOf(easy, CURLINFO_APPCONNECT_TIME_T));
    const Duration ready(numberOf(easy, CURLINFO_PRETRANSFER_TIME_T));
    record.isNewConnection = !attempt.opened.empty();
    record.queued = queued_;
    if (record.isNewConnection) {
        record.lookup = between(Duration::zero(), lookup);
        record.connect = between(lookup, connect);
        record.tls = between(connect, tls);
    } else {
        // Until then, libcurl only waited for the connection.
        record.queued += ready;
    }
    record.firstByte = between(ready, Duration(numberOf(easy, CURLINFO_STARTTRANSFER_TIME_T)));
    record.bodyBytesSent = numberOf(easy, CURLINFO_SIZE_UPLOAD_T);
    record.headBytesReceived = smallNumberOf(easy, CURLINFO_HEADER_SIZE);
    record.bodyBytesReceived = numberOf(easy, CURLINFO_SIZE_DOWNLOAD_T);
    if (!attempt.hasHead) return;
    record.status = attempt.head.status();
    record.protocol = protocolOf(smallNumberOf(easy, CURLINFO_HTTP_VERSION));
}

void ExchangeMetrics::answeredWithRedirect(std::int64_t status) {
    records_.back().status = status;
    if (!isSent_) records_.back().source = AnswerSource::cache;
}

void ExchangeMetrics::redirected(const URLRequest& request) {
    end(request, {});
    const std::int64_t redirects = records_.back().redirects + 1;
    records_.emplace_back().redirects = redirects;
    begun_ = Clock::now();
    isSent_ = false;
}

void ExchangeMetrics::ended(const URLRequest& request, Outcome& outcome) {
    end(request, outcome);
    outcome.metrics = std::move(records_);
}

void ExchangeMetrics::end(const URLRequest& request, const Outcome& outcome) {
    resumed(Clock::now());
    RequestMetrics& record = records_.back();
    describe(record, request, outcome);
    record.total = sinceStart(begun_);
    if (isSent_ || !outcome.error) return;
    record.queued = record.total;
    // The response that accompanies the error is that of the preceding redirect.
    record.status.reset();
}

}  // namespace VanticRestKit::detail
