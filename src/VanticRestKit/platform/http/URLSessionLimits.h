#pragma once

/// \file
/// `URLSessionLimits`: how much a server can make a session take.

#include <chrono>
#include <cstdint>
#include <limits>

namespace VanticRestKit {

/// The limits that a session puts on what servers send. Sizes are in bytes; a KB is 1,024 of them, an MB 1,024 KB.
///
/// A load that exceeds a limit ends at once, with its connection, and fails with an error of the domain
/// `NSURLErrorDomain`. Unless a field says otherwise the code is `URLErrorCode::dataLengthExceedsMaximum`; the
/// description for developers (`NSDebugDescription` in the user information) names the field. `docs/limits.md` lists
/// all limits.
struct URLSessionLimits {
    /// For fields that count: no limit.
    static constexpr std::uint64_t unlimited = std::numeric_limits<std::uint64_t>::max();

    /// The size of a body as it is sent, before its content coding is undone. A `Content-Length` above it ends the
    /// load with the first piece of the body. Never more than a process can address, which on 32-bit systems is 2 GB.
    std::uint64_t maxBodyBytesOnWire = 256 * 1024 * 1024;

    /// The size of a body after its content coding is undone; for a body with several codings, also the size between
    /// two of them.
    std::uint64_t maxBodyBytes = 256 * 1024 * 1024;

    /// How many bytes each byte of a coded body may decode to, on average, once more than an MB has been decoded. That
    /// first MB does not count.
    std::uint64_t maxDecodingRatio = 200;

    /// How many bytes of a body have to come per second, on average over each `bodySpeedInterval`, as they are sent. A
    /// body that comes more slowly fails its load with `URLErrorCode::timedOut`. 0: a body may be as slow as the idle
    /// time-out lets it.
    std::uint64_t minBodyBytesPerSecond = 0;

    /// See `minBodyBytesPerSecond`; a value that is not above zero stands for the default.
    std::chrono::duration<double> bodySpeedInterval{30};

    /// The length of a header line, its line end included. More than 100 KB has no effect: no longer line can be read.
    std::uint64_t maxHeaderLineBytes = 64 * 1024;

    /// The size of all header lines of an answer: those of interim answers, of the final one, and its trailers. More
    /// than 300 KB has no effect: no larger head can be read.
    std::uint64_t maxHeadBytes = 256 * 1024;

    /// The number of those lines.
    std::uint64_t maxHeadLines = 1000;

    /// The number of interim answers (1xx) before the final one.
    std::uint64_t maxInterimAnswers = 32;

    /// How many redirects a load follows. The next one fails it with `URLErrorCode::httpTooManyRedirects`.
    std::uint64_t maxRedirects = 20;

    /// How many bytes of answers may wait for their completions because other completions take long. Beyond it the session
    /// reads no more bodies and sends no further request, until half of this has been delivered; a load has its whole
    /// idle time after such a pause. Answers that are on their way when the pause begins come on top.
    std::uint64_t maxUndeliveredBytes = 32 * 1024 * 1024;

    /// How many loads of one origin may wait for a connection; at least 1. One more fails at once with
    /// `URLErrorCode::queuedLoadsExceedMaximum`. Redirects do not count.
    std::uint64_t maxQueuedLoadsPerOrigin = unlimited;

    /// How many names of hosts are looked up at once; at least 1. Each takes a thread and three descriptors. Loads of
    /// further names wait in the queue. A look-up whose load was cancelled or timed out runs to its own end and no longer
    /// counts.
    std::uint64_t maxNameLookups = 16;

    /// How many idle connections stay open for later loads, over all hosts; at least 1. Beyond it the one that has been
    /// idle longest is closed. No load fails.
    std::uint64_t maxIdleConnections = 64;
};

}  // namespace VanticRestKit
