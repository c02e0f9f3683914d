#pragma once

/// \file
/// `BodyPacer`: limits how much of the received bodies is decoded in one round of the I/O thread.

#include <chrono>
#include <cstddef>
#include <deque>
#include <string_view>

namespace VanticRestKit::detail {

struct Attempt;

/// Divides the time of the I/O thread among coded bodies, so that one that expands to a GB does not delay others. A
/// round decodes a limited number of bytes in total; the rest waits in a queue, and libcurl passes on no more of a
/// waiting body until its turn has come. For the I/O thread only.
class BodyPacer {
public:
    /// The maximum number of bytes that a round decodes in total, and that one body decodes in its turn. On a slow
    /// machine these take a few milliseconds and a fraction of a millisecond.
    static constexpr std::size_t bytesPerRound = 512 * 1024;
    static constexpr std::size_t bytesPerTurn = 128 * 1024;

    /// How often it is checked if libcurl keeps a part of a body.
    static constexpr std::chrono::milliseconds checkInterval{100};

    BodyPacer() = default;
    BodyPacer(const BodyPacer&) = delete;
    BodyPacer& operator=(const BodyPacer&) = delete;

    /// Begins a round. `isStopped`: no bodies are read or decoded in it.
    void beginRound(bool isStopped) noexcept {
        isStopped_ = isStopped;
        budget_ = isStopped ? 0 : bytesPerRound;
        hasMoved_ = false;
    }

    /// Must be called when a paused body is resumed. From then on libcurl may keep a part of it.
    void noteResumed() noexcept { hasResumed_ = hasMoved_ = true; }

    /// Must be called when every body that was resumed has ended or is paused again.
    void noteNoneResumed() noexcept { hasResumed_ = false; }

    /// Whether libcurl may keep a part of a resumed body: it has passed on nothing in this round.
    bool mayBeKept() const noexcept { return hasResumed_ && !hasMoved_; }

    /// Takes a piece of the body of `attempt` from libcurl's write callback. Returns the callback's return value.
    std::size_t take(Attempt& attempt, std::string_view piece);

    /// Removes and returns the next attempt in the queue whose body is not being decoded by another thread; null if
    /// there is none, or if this round has decoded enough.
    Attempt* next();

    /// Decodes more of the body of an attempt that `next` returned. A fault is stored in the attempt.
    void decode(Attempt& attempt);

    /// Appends `attempt` to the queue, unless it is in it.
    void hold(Attempt& attempt);

    /// Removes `attempt` from the queue, if it is in it.
    void forget(Attempt& attempt);

    /// How long the thread may wait before the next round: not at all if a body is ready to be decoded, or something
    /// was received after a pause; and not for long while another thread is decoding a body, or libcurl may keep a part
    /// of one.
    std::chrono::milliseconds maxWait() const;

private:
    std::deque<Attempt*>::const_iterator firstReady() const;

    std::size_t budget_ = 0;
    bool isStopped_ = false;
    /// Whether there may be bodies that were resumed and have not ended.
    bool hasResumed_ = false;
    /// Whether libcurl has passed on a piece of any body in this round, or a body was resumed in it.
    bool hasMoved_ = false;
    std::deque<Attempt*> held_;
};

}  // namespace VanticRestKit::detail
