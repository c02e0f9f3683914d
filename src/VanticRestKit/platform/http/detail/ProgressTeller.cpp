#include <VanticRestKit/platform/http/detail/ProgressTeller.h>

#include <utility>

namespace VanticRestKit::detail {

LoadProgress ProgressCounts::snapshot() const {
    return {.bytesSent = sent,
            .bytesExpectedToSend = expectedToSend,
            .bytesReceived = received,
            .bytesExpectedToReceive = expectedToReceive};
}

ProgressTeller::ProgressTeller(ProgressReceiver receiver, DispatchQueue delegateQueue)
    : delegateQueue_(std::move(delegateQueue)), receiver_(std::move(receiver)) {}

void ProgressTeller::moved(const ProgressCounts& counts, TimePoint now) {
    // The time counts from the first movement: most loads have ended before anything is worth telling.
    if (!toldAt_) toldAt_ = now;
    if (now - *toldAt_ < interval || isUnderWay_) return;
    toldAt_ = now;
    LoadProgress progress = counts.snapshot();
    progress.state = state_;
    post(progress, true);
}

void ProgressTeller::changed(LoadProgress::State state, std::int64_t queueLength,
                             const ProgressCounts& counts) {
    state_ = state;
    LoadProgress progress = counts.snapshot();
    progress.state = state;
    progress.queueLength = queueLength;
    post(progress, false);
}

void ProgressTeller::post(const LoadProgress& progress, bool isOfCounts) {
    if (isOfCounts) isUnderWay_ = true;
    delegateQueue_.async([self = shared_from_this(), progress, isOfCounts] {
        if (isOfCounts) self->isUnderWay_ = false;
        self->tell(progress);
    });
}

void ProgressTeller::tell(const LoadProgress& progress) {
    if (isStopped_ || !receiver_) return;
    told_ = progress;
    // The receiver may end the transfer, and so let itself go.
    const ProgressReceiver receiver = receiver_;
    receiver(progress);
}

void ProgressTeller::end(const ProgressCounts* counts) {
    if (counts != nullptr) {
        const LoadProgress last = counts->snapshot();
        if (last != told_ && (last.bytesReceived > 0 || last.bytesSent > 0)) tell(last);
    }
    const ProgressReceiver released = std::move(receiver_);
}

}  // namespace VanticRestKit::detail
