#pragma once

/// \file
/// An operation whose outcomes the test supplies.

#include <VanticRestKit/platform/async/Operation.h>
#include <VanticRestKit/platform/error/NSError.h>

#include <support/Event.h>

#include <cstdint>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit::test {

using Number = Result<int, Error>;

/// Holds each start until `answer`. The outcome is delivered on the thread that calls `answer`.
class ManualOperationSource final : public detail::OperationSource<Number>,
                                    public std::enable_shared_from_this<ManualOperationSource> {
public:
    class Call final : public detail::AsyncCall {
    public:
        Call(std::shared_ptr<const ManualOperationSource> source, LoadOptions options,
             UniqueFunction<void(Number)> completion)
            : AsyncCall(std::move(options), source->queue),
              source_(std::move(source)),
              completion_(std::move(completion)) {}

        void answer(Number number) {
            if (!settle()) return;
            outcome_.emplace(std::move(number));
            settled();
        }

    private:
        Cancellable startWork() override {
            {
                const std::lock_guard lock(source_->mutex_);
                source_->calls_.push_back(std::static_pointer_cast<Call>(shared_from_this()));
            }
            source_->started.signal();
            return Cancellable([source = source_] { source->cancelled.signal(); });
        }
        void deliver(std::optional<URLErrorCode> early) override {
            if (early) outcome_.emplace(Failure(Error(NSError("early", static_cast<std::int64_t>(*early)))));
            completion_(*std::move(outcome_));
        }
        void release() override { completion_ = nullptr; }

        const std::shared_ptr<const ManualOperationSource> source_;
        UniqueFunction<void(Number)> completion_;
        std::optional<Number> outcome_;
    };

    std::shared_ptr<detail::PendingCall> prepare(LoadOptions options,
                                                 UniqueFunction<void(Number)> completion) const override {
        return std::make_shared<Call>(shared_from_this(), std::move(options), std::move(completion));
    }
    bool needsCurrentQueue() const override { return queue.isCurrent(); }
    Number failed(Error error) const override { return Failure(std::move(error)); }

    /// Waits for the start with index `place` and delivers its outcome on the calling thread.
    void answer(Number number, std::size_t place = 0) const {
        ASSERT_TRUE(started.wait(static_cast<int>(place) + 1));
        std::shared_ptr<Call> call;
        {
            const std::lock_guard lock(mutex_);
            call = calls_.at(place);
        }
        call->answer(std::move(number));
    }

    /// Releases the started calls, since a call and its source hold each other.
    void forget() const {
        const std::lock_guard lock(mutex_);
        calls_.clear();
    }

    const DispatchQueue queue = DispatchQueue::withOwnThread("manual");
    const Event started;
    const Event cancelled;

private:
    mutable std::mutex mutex_;
    mutable std::vector<std::shared_ptr<Call>> calls_;
};

/// The error code of a failure, 0 for a success.
inline std::int64_t codeOf(const Number& outcome) { return outcome ? 0 : outcome.error().code(); }

}  // namespace VanticRestKit::test
