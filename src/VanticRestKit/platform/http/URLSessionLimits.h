#pragma once

/// \file
/// `URLSessionLimits`: limits on what servers can send to a session.

#include <chrono>
#include <cstdint>
#include <limits>

namespace VanticRestKit {

/// A session's limits on what servers can send. Sizes are in bytes; a KB is 1,024 bytes, an MB is 1,024 KB.
///
/// A load that exceeds a limit fails at once with an error of the domain `NSURLErrorDomain`, and its connection is
/// closed. Unless a field says otherwise the code is `URLErrorCode::dataLengthExceedsMaximum`; the description for
/// developers (`NSDebugDescription` in the user information) names the field. `docs/limits.md` lists all limits.
struct URLSessionLimits {
    /// No limit, for fields that are counts.
    static constexpr std::uint64_t unlimited = std::numeric_limits<std::uint64_t>::max();

    /// The maximum size of a body on the wire, before its content coding is decoded. With a larger `Content-Length` the
    /// load fails at the first piece of the body. Limited to what a process can address, which is 2 GB on 32-bit
    /// systems.
    std::uint64_t maxBodyBytesOnWire = 256 * 1024 * 1024;

    /// The maximum size of a decoded body; for a body with several codings, also of each intermediate result.
    std::uint64_t maxBodyBytes = 256 * 1024 * 1024;

    /// The maximum average number of bytes to which each byte of a coded body may decode. The first decoded MB does not
    /// count.
    std::uint64_t maxDecodingRatio = 200;

    /// The minimum speed of a body in bytes per second on the wire, averaged over each `bodySpeedInterval`. If a body
    /// is slower, its load fails with `URLErrorCode::timedOut`. 0: only the idle time-out applies.
    std::uint64_t minBodyBytesPerSecond = 0;

    /// See `minBodyBytesPerSecond`; if not above zero, the default is used.
    std::chrono::duration<double> bodySpeedInterval{30};

    /// The maximum length of a header line, including its line end. Values above 100 KB have no effect: longer lines
    /// cannot be read.
    std::uint64_t maxHeaderLineBytes = 64 * 1024;

    /// The maximum total size of the header lines of interim responses, of the final response, and of its trailers.
    /// Values above 300 KB have no effect: more cannot be read.
    std::uint64_t maxHeadBytes = 256 * 1024;

    /// The maximum number of these lines.
    std::uint64_t maxHeadLines = 1000;

    /// The maximum number of interim responses (1xx) before the final one.
    std::uint64_t maxInterimAnswers = 32;

    /// The maximum number of redirects that a load follows. One more makes it fail with
    /// `URLErrorCode::httpTooManyRedirects`.
    std::uint64_t maxRedirects = 20;

    /// How many bytes of responses may wait for their completions because other completions are slow. Above it the
    /// session pauses: it reads no bodies and sends no requests until half of this has been delivered. The idle
    /// time-out of a load restarts after such a pause. Responses that are already arriving when the pause begins may
    /// exceed it.
    std::uint64_t maxUndeliveredBytes = 32 * 1024 * 1024;

    /// How many loads may wait for a connection to one origin; at least 1. Further loads fail at once with
    /// `URLErrorCode::queuedLoadsExceedMaximum`. Redirects do not count.
    std::uint64_t maxQueuedLoadsPerOrigin = unlimited;

    /// How many host names are looked up at once; at least 1. Each lookup takes a thread and three file descriptors.
    /// Loads of further names wait in the queue. A lookup whose load was cancelled or timed out still runs to its end,
    /// but no longer counts.
    std::uint64_t maxNameLookups = 16;

    /// How many idle connections to all hosts together stay open for later loads; at least 1. Above it the one that has
    /// been idle longest is closed; loads are not affected.
    std::uint64_t maxIdleConnections = 64;
};

}  // namespace VanticRestKit
