#pragma once

/// \file
/// `RequestMetrics`: what one request did, for logs and statistics.

#include <VanticRestKit/platform/dispatch/SharedFunction.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/http/HTTPCacheStatus.h>

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace VanticRestKit {

/// What one request did. Each request that is sent has a record of its own: the ones that a redirect leads to, and each
/// attempt of a service that tries again. What libcurl sends anew by itself, because a connection turned out to be dead
/// before anything came back, is part of the same request.
///
/// A request that was never sent has a record too; it says why in `error`.
struct RequestMetrics {
    /// How long something took.
    using Duration = std::chrono::microseconds;

    /// The method of the request.
    std::string method{};
    /// Empty if the request had none.
    std::string url{};
    /// The status of the answer; empty if its head did not arrive.
    std::optional<std::int64_t> status{};
    /// Why there is no answer, from the transport; a status of 400 and above is none.
    std::optional<Error> error{};

    /// Where the answer came from.
    AnswerSource source = AnswerSource::network;
    /// 1 for the first attempt.
    std::int64_t attempt = 1;
    /// How many redirects led to this request.
    std::int64_t redirects = 0;

    /// The protocol of the answer by its registered name, such as "http/1.1" or "h2"; empty if there is no answer.
    std::string protocol{};
    /// Whether a connection was opened for it.
    bool isNewConnection = false;

    /// How long it waited for its turn, or for a connection that others were using.
    Duration queued{};
    /// How many requests waited for a connection to the same origin when this one began to wait, itself included; 0 if
    /// it went at once.
    std::int64_t queueLength = 0;
    /// How long its body was not read because completions were slower than the network: the answers that waited for
    /// theirs exceeded `URLSessionLimits::maxUndeliveredBytes`.
    Duration heldBack{};
    /// How long it took to look up the host, to connect, and to set up TLS. Each is empty if that was not done or not
    /// finished. Where several addresses had to be tried they are those of the last attempt.
    std::optional<Duration> lookup{};
    /// How long connecting took; as `lookup`.
    std::optional<Duration> connect{};
    /// How long setting up TLS took; as `lookup`.
    std::optional<Duration> tls{};
    /// From the moment in which it could be sent to the first byte of the answer; empty if none came.
    std::optional<Duration> firstByte{};
    /// From its start, or from the redirect that led to it, to its end, waiting included.
    Duration total{};

    /// What was sent of the body.
    std::int64_t bodyBytesSent = 0;
    /// What the head of the answer takes; one of HTTP/2 as it would be written in HTTP/1.1.
    std::int64_t headBytesReceived = 0;
    /// What the body took on the wire.
    std::int64_t bodyBytesReceived = 0;
    /// What the body takes once its content coding is undone; 0 if the request failed or led to another one.
    std::int64_t bodyBytesDecoded = 0;
};

/// Receives the records of a request before its completion is called, on the same queue, in the order of sending.
using MetricsReceiver = SharedFunction<void(const RequestMetrics&)>;

/// A receiver that hands records on to `receiver` as those of attempt number `attempt`. Empty if `receiver` is.
inline MetricsReceiver ofAttempt(MetricsReceiver receiver, std::int64_t attempt) {
    if (!receiver) return receiver;
    return [receiver, attempt](RequestMetrics metrics) {
        metrics.attempt = attempt;
        receiver(metrics);
    };
}

}  // namespace VanticRestKit
