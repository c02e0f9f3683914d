#include <VanticRestKit/platform/http/detail/ProgressReporter.h>

#include <utility>

namespace VanticRestKit::detail {

LoadProgress ProgressCounts::snapshot() const {
    return {.bytesSent = sent,
            .bytesExpectedToSend = expectedToSend,
            .bytesReceived = received,
            .bytesExpectedToReceive = expectedToReceive};
}

ProgressReporter::ProgressReporter(ProgressReceiver receiver, DispatchQueue delegateQueue)
    : delegateQueue_(std::move(delegateQueue)), receiver_(std::move(receiver)) {}

void ProgressReporter::moved(const ProgressCounts& counts, TimePoint now) {
    // The interval starts with the first bytes: most loads end before a report is due.
    if (!reportedAt_) reportedAt_ = now;
    if (now - *reportedAt_ < interval || isPending_) return;
    reportedAt_ = now;
    LoadProgress progress = counts.snapshot();
    progress.state = state_;
    post(progress, true);
}

void ProgressReporter::changed(LoadProgress::State state, std::int64_t queueLength,
                               const ProgressCounts& counts) {
    state_ = state;
    LoadProgress progress = counts.snapshot();
    progress.state = state;
    progress.queueLength = queueLength;
    post(progress, false);
}

void ProgressReporter::post(const LoadProgress& progress, bool isCountReport) {
    if (isCountReport) isPending_ = true;
    delegateQueue_.async([self = shared_from_this(), progress, isCountReport] {
        if (isCountReport) self->isPending_ = false;
        self->report(progress);
    });
}

void ProgressReporter::report(const LoadProgress& progress) {
    if (isStopped_ || !receiver_) return;
    reported_ = progress;
    // The receiver may end the transfer and thereby destroy itself, so call a copy.
    const ProgressReceiver receiver = receiver_;
    receiver(progress);
}

void ProgressReporter::end(const ProgressCounts* counts) {
    if (counts != nullptr) {
        const LoadProgress last = counts->snapshot();
        if (last != reported_ && (last.bytesReceived > 0 || last.bytesSent > 0)) report(last);
    }
    const ProgressReceiver released = std::move(receiver_);
}

}  // namespace VanticRestKit::detail
