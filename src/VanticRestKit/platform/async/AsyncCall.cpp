#include <VanticRestKit/platform/async/AsyncCall.h>
#include <VanticRestKit/platform/dispatch/detail/Timer.h>

#include <utility>

namespace VanticRestKit::detail {

PendingCall::~PendingCall() = default;

AsyncCall::AsyncCall(LoadOptions options, DispatchQueue usualQueue)
    : on_(std::move(options.on)),
      usualQueue_(std::move(usualQueue)),
      deadline_(options.deadline),
      stop_(std::move(options.stop)),
      progress_(std::move(options.progress)) {}

AsyncCall::~AsyncCall() = default;

DispatchQueue AsyncCall::sharedQueue() {
    static const auto& queue = *new DispatchQueue("VanticRestKit outcomes");
    return queue;
}

void AsyncCall::begin() {
    if (stop_.stop_requested()) {
        endEarly(URLErrorCode::cancelled);
        return;
    }
    // In this form a NaN deadline counts as passed.
    if (deadline_ && !(deadline_->count() > 0)) {
        endEarly(URLErrorCode::timedOut);
        return;
    }
    armDeadline();
    armStop();
    if (state_.load() == open) keep(startWork());
}

void AsyncCall::armDeadline() {
    if (!deadline_) return;
    const auto ended = [weak = weak_from_this()] {
        if (const auto self = weak.lock()) self->endEarly(URLErrorCode::timedOut);
    };
    const std::lock_guard lock(workMutex_);
    disarm_ = [id = Timer::shared().add(*deadline_, ended)] { Timer::shared().remove(id); };
}

void AsyncCall::armStop() {
    if (!stop_.stop_possible()) return;
    stopCallback_.emplace(stop_, Block([weak = weak_from_this()] {
                              if (const auto self = weak.lock()) self->endEarly(URLErrorCode::cancelled);
                          }));
}

void AsyncCall::cancel() { endEarly(URLErrorCode::cancelled); }

void AsyncCall::drop() {
    const std::uint8_t before = state_.fetch_or(hasOutcome | isFinished);
    if ((before & hasOutcome) == 0) letGoOfWork(false);
    letGoOfProgress();
    if ((before & isFinished) == 0) release();
}

ProgressReceiver AsyncCall::progressReceiver() {
    {
        // A stop or the deadline may be ending the load already.
        const std::lock_guard lock(workMutex_);
        if (!progress_) return {};
    }
    return [weak = weak_from_this()](const LoadProgress& progress) {
        if (const auto self = weak.lock()) self->progressed(progress);
    };
}

void AsyncCall::progressed(const LoadProgress& progress) {
    if (on_) {
        on_->async([self = shared_from_this(), progress] { self->tell(progress); });
    } else {
        tell(progress);
    }
}

void AsyncCall::tell(const LoadProgress& progress) {
    ProgressReceiver receiver;
    {
        const std::lock_guard lock(workMutex_);
        receiver = progress_;
    }
    if (receiver) receiver(progress);
}

void AsyncCall::letGoOfProgress() {
    ProgressReceiver released;
    const std::lock_guard lock(workMutex_);
    std::swap(released, progress_);
}

bool AsyncCall::settle() {
    if ((state_.fetch_or(hasOutcome) & hasOutcome) != 0) return false;
    letGoOfWork(true);
    return true;
}

void AsyncCall::settled() {
    if (on_) {
        on_->async([self = shared_from_this()] { self->finish(std::nullopt); });
    } else {
        finish(std::nullopt);
    }
}

void AsyncCall::endEarly(URLErrorCode code) {
    if ((state_.fetch_or(hasOutcome) & hasOutcome) != 0) return;
    letGoOfProgress();
    letGoOfWork(false);
    const DispatchQueue& queue = on_ ? *on_ : usualQueue_;
    queue.async([self = shared_from_this(), code] { self->finish(code); });
}

void AsyncCall::finish(std::optional<URLErrorCode> early) {
    if ((state_.fetch_or(isFinished) & isFinished) != 0) return;
    letGoOfProgress();
    deliver(early);
    release();
}

void AsyncCall::keep(Cancellable work) {
    {
        const std::lock_guard lock(workMutex_);
        if (!isWorkOver_) {
            work_ = std::move(work);
            return;
        }
        if (hasWorkEnded_) work.detach();
    }
    // Work in progress is cancelled here, by the destructor of `work`.
}

void AsyncCall::letGoOfWork(bool hasEnded) {
    Cancellable work;
    UniqueFunction<void()> disarm;
    {
        const std::lock_guard lock(workMutex_);
        isWorkOver_ = true;
        hasWorkEnded_ = hasEnded;
        work = std::move(work_);
        disarm = std::move(disarm_);
    }
    if (disarm) disarm();
    if (hasEnded) work.detach();
}

}  // namespace VanticRestKit::detail
