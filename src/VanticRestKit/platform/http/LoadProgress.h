#pragma once

/// \file
/// `LoadProgress`: how far a load is, while it is under way.

#include <VanticRestKit/platform/dispatch/SharedFunction.h>

#include <cstdint>

namespace VanticRestKit {

/// How far a load is. Sizes are in bytes, as they go over the wire: of a body with a content coding, the coded bytes.
struct LoadProgress {
    /// Whether a load moves, and if not, what it waits for.
    enum class State : std::uint8_t {
        /// It moves, or waits for its server.
        loading,
        /// It waits for a connection, because others use all that its origin may have.
        queued,
        /// Its body is not read on, because completions are slower than the network: the answers that wait for theirs
        /// exceed `URLSessionLimits::maxUndeliveredBytes`.
        heldBack,
    };
    /// What the load waits for now.
    State state = State::loading;
    /// How many loads wait for a connection to the same origin, this one included; 0 unless it is `queued`.
    std::int64_t queueLength = 0;

    /// What went out of the request's body.
    std::int64_t bytesSent = 0;
    /// The size of the request's body.
    std::int64_t bytesExpectedToSend = 0;
    /// What came of the answer's body. Bodies of redirects that are followed do not count.
    std::int64_t bytesReceived = 0;
    /// The size of the answer's body; -1 if that is not known, or not yet.
    std::int64_t bytesExpectedToReceive = -1;

    friend bool operator==(const LoadProgress&, const LoadProgress&) = default;
};

/// Is told how far a load is, on the queue of its completion, and never after the completion was called or the load
/// was cancelled; a call that is under way on another thread during the cancel comes to its end.
///
/// Each change of the state is told, and, at most ten times a second, that bytes have moved. A load whose body has
/// arrived whole tells of its last byte before its completion. So one that takes less than a tenth of a second tells
/// once, and one whose answer a cache has not at all.
///
/// The bytes never decrease, unless a redirect or a service that tries again sends another request.
using ProgressReceiver = SharedFunction<void(const LoadProgress&)>;

}  // namespace VanticRestKit
