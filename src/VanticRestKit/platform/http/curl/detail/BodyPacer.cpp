#include <VanticRestKit/platform/http/curl/detail/BodyPacer.h>
#include <VanticRestKit/platform/http/curl/detail/Exchange.h>

#include <curl/curl.h>

#include <algorithm>

namespace VanticRestKit::detail {

std::size_t BodyPacer::take(Attempt& attempt, std::string_view piece) {
    hasMoved_ = true;
    const bool isTurnOver = attempt.body.isCoded() && (budget_ == 0 || attempt.body.hasMore());
    attempt.isPaused = isStopped_ || isTurnOver;
    if (attempt.isPaused) {
        if (isStopped_)
            attempt.exchange.reportWaiting(LoadProgress::State::heldBack, 0, attempt.surroundings.now);
        hold(attempt);
        return CURL_WRITEFUNC_PAUSE;
    }
    attempt.fault = attempt.body.add(piece, budget_);
    // If libcurl passes on data that it kept during a pause, it ignores a failure here; then the queue handles the
    // fault.
    if (attempt.fault || attempt.body.hasMore()) hold(attempt);
    return attempt.fault ? 0 : piece.size();
}

Attempt* BodyPacer::next() {
    if (budget_ == 0) return nullptr;
    const auto ready = firstReady();
    if (ready == held_.end()) return nullptr;
    Attempt* const attempt = *ready;
    held_.erase(ready);
    attempt->isHeld = false;
    return attempt;
}

std::deque<Attempt*>::const_iterator BodyPacer::firstReady() const {
    return std::find_if(held_.begin(), held_.end(),
                        [](const Attempt* attempt) { return !attempt->body.isBeingDecoded(); });
}

std::chrono::milliseconds BodyPacer::maxWait() const {
    using std::chrono::milliseconds;
    if (hasResumed_ && hasMoved_) return milliseconds(0);
    if (held_.empty() || isStopped_) return hasResumed_ ? checkInterval : std::chrono::hours(1);
    return milliseconds(firstReady() == held_.end() ? 1 : 0);
}

void BodyPacer::decode(Attempt& attempt) {
    if (attempt.fault) return;
    const std::size_t turn = std::min(budget_, bytesPerTurn);
    std::size_t left = turn;
    attempt.fault = attempt.body.decode(left);
    budget_ -= turn - left;
}

void BodyPacer::hold(Attempt& attempt) {
    if (attempt.isHeld) return;
    attempt.isHeld = true;
    held_.push_back(&attempt);
}

void BodyPacer::forget(Attempt& attempt) {
    if (!attempt.isHeld) return;
    attempt.isHeld = false;
    std::erase(held_, &attempt);
}

}  // namespace VanticRestKit::detail
