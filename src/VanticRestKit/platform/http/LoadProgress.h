#pragma once

/// \file
/// `LoadProgress`: the progress of a running load.

#include <VanticRestKit/platform/dispatch/SharedFunction.h>

#include <cstdint>

namespace VanticRestKit {

/// The progress of a load. Sizes are in bytes on the wire: for a body with a content coding, the coded bytes.
struct LoadProgress {
    /// Whether a load is active, and otherwise what it waits for.
    enum class State : std::uint8_t {
        /// Transferring, or waiting for the server.
        loading,
        /// Waiting for a connection, because other loads use all connections that its origin may have.
        queued,
        /// Reading of its body is paused because completions are slower than the network: the responses that wait for
        /// their completions exceed `URLSessionLimits::maxUndeliveredBytes`.
        heldBack,
    };
    /// The current state.
    State state = State::loading;
    /// How many loads wait for a connection to the same origin, including this one; 0 unless the state is `queued`.
    std::int64_t queueLength = 0;

    /// How much of the request's body has been sent.
    std::int64_t bytesSent = 0;
    /// The size of the request's body.
    std::int64_t bytesExpectedToSend = 0;
    /// How much of the response's body has been received. Bodies of followed redirects do not count.
    std::int64_t bytesReceived = 0;
    /// The size of the response's body; -1 while it is unknown.
    std::int64_t bytesExpectedToReceive = -1;

    friend bool operator==(const LoadProgress&, const LoadProgress&) = default;
};

/// Receives the progress of a load, on the queue of its completion. Not called after the completion was called or the
/// load was cancelled; a call that is already running on another thread during the cancel finishes.
///
/// Called on each change of the state and, at most ten times a second, when bytes have been transferred. A load whose
/// body has arrived completely reports its last byte before its completion. So a load that takes less than a tenth of a
/// second reports once, and a load that is served from a cache does not report at all.
///
/// The counts never decrease, unless a redirect or a retry by a service sends another request.
using ProgressReceiver = SharedFunction<void(const LoadProgress&)>;

}  // namespace VanticRestKit
