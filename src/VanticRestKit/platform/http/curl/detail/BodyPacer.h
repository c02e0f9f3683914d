#pragma once

/// \file
/// `BodyPacer`: how much of the bodies that arrive is decoded in one round of the I/O thread.

#include <chrono>
#include <cstddef>
#include <deque>
#include <string_view>

namespace VanticRestKit::detail {

struct Attempt;

/// Shares out the time of the I/O thread among coded bodies, so that one that expands to a GB holds up nothing else. A
/// round decodes so many bytes in all; what has to wait keeps its place in a queue, and libcurl gives no more of that
/// body until its turn has come. For the I/O thread only.
class BodyPacer {
public:
    /// What a round decodes in all, and one body in its turn: on a slow machine a few milliseconds, and a fraction of
    /// one.
    static constexpr std::size_t bytesPerRound = 512 * 1024;
    static constexpr std::size_t bytesPerTurn = 128 * 1024;

    BodyPacer() = default;
    BodyPacer(const BodyPacer&) = delete;
    BodyPacer& operator=(const BodyPacer&) = delete;

    /// Begins a round. `isStopped`: bodies are neither read nor decoded in it.
    void beginRound(bool isStopped) noexcept {
        isStopped_ = isStopped;
        budget_ = isStopped ? 0 : bytesPerRound;
    }

    /// Takes a piece of the body of `attempt`, as libcurl's callback for bodies. Returns what that has to return.
    std::size_t take(Attempt& attempt, std::string_view piece);

    /// Takes the next attempt out of the queue on whose body no other thread is at work; null if there is none, or this
    /// round has decoded enough.
    Attempt* next();

    /// Decodes more of the body of an attempt that `next` gave. A fault is noted in the attempt.
    void decode(Attempt& attempt);

    /// Puts `attempt` at the end of the queue, unless it is there.
    void hold(Attempt& attempt);

    /// Takes `attempt` out of the queue, if it is there.
    void forget(Attempt& attempt);

    /// How long the thread may wait before the next round: not at all if something waits for it, and not for long if
    /// another thread is at work.
    std::chrono::milliseconds longestWait() const;

private:
    std::deque<Attempt*>::const_iterator firstReady() const;

    std::size_t budget_ = 0;
    bool isStopped_ = false;
    std::deque<Attempt*> held_;
};

}  // namespace VanticRestKit::detail
