#pragma once

/// \file
/// `RequestMetrics`: figures about one request, for logs and statistics.

#include <VanticRestKit/platform/dispatch/SharedFunction.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/http/HTTPCacheStatus.h>

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace VanticRestKit {

/// Figures about one request. Each request that is sent has its own record, including those caused by redirects and
/// each retry by a service. A request that libcurl sends again by itself, because its connection turned out to be dead
/// before any response, is still the same request.
///
/// A request that was never sent has a record too; its `error` gives the reason.
struct RequestMetrics {
    /// A duration in microseconds.
    using Duration = std::chrono::microseconds;

    /// The method of the request.
    std::string method{};
    /// The URL of the request; empty if it had none.
    std::string url{};
    /// The status of the response; empty if its headers did not arrive.
    std::optional<std::int64_t> status{};
    /// The transport error, if the request failed. A status of 400 or above is not an error here.
    std::optional<Error> error{};

    /// Where the response came from.
    AnswerSource source = AnswerSource::network;
    /// 1 for the first attempt.
    std::int64_t attempt = 1;
    /// How many redirects led to this request.
    std::int64_t redirects = 0;

    /// The protocol of the response by its registered name, such as "http/1.1" or "h2"; empty if there was no response.
    std::string protocol{};
    /// Whether a connection was opened for the request.
    bool isNewConnection = false;

    /// How long it waited in the queue, or for a connection that was in use.
    Duration queued{};
    /// How many requests waited for a connection to the same origin when this one began to wait, including itself; 0 if
    /// it did not wait.
    std::int64_t queueLength = 0;
    /// How long reading its body was paused because completions were slower than the network: the responses that waited
    /// for their completions exceeded `URLSessionLimits::maxUndeliveredBytes`.
    Duration heldBack{};
    /// How long the host name lookup took; empty if it was not done or not finished. If several addresses were tried,
    /// this and the next two are those of the last attempt.
    std::optional<Duration> lookup{};
    /// How long connecting took; empty as for `lookup`.
    std::optional<Duration> connect{};
    /// How long setting up TLS took; empty as for `lookup`.
    std::optional<Duration> tls{};
    /// The time from when it could be sent to the first byte of the response; empty if none arrived.
    std::optional<Duration> firstByte{};
    /// The time from its start, or from the redirect that led to it, to its end, including waiting.
    Duration total{};

    /// How many bytes of the body were sent.
    std::int64_t bodyBytesSent = 0;
    /// The size of the response's status line and headers; for HTTP/2, their size if written as HTTP/1.1.
    std::int64_t headBytesReceived = 0;
    /// The size of the response's body on the wire.
    std::int64_t bodyBytesReceived = 0;
    /// The size of the response's decoded body; 0 if the request failed or was redirected.
    std::int64_t bodyBytesDecoded = 0;
};

/// Receives the records of a load before its completion is called, on the same queue, in the order in which the
/// requests were sent.
using MetricsReceiver = SharedFunction<void(const RequestMetrics&)>;

/// A receiver that passes records to `receiver` with their `attempt` set. Empty if `receiver` is empty.
inline MetricsReceiver ofAttempt(MetricsReceiver receiver, std::int64_t attempt) {
    if (!receiver) return receiver;
    return [receiver, attempt](RequestMetrics metrics) {
        metrics.attempt = attempt;
        receiver(metrics);
    };
}

}  // namespace VanticRestKit
