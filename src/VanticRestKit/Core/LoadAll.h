#pragma once

/// \file
/// `loadAll`: several loads with a limit on how many run at once.

#include <VanticRestKit/Core/LoaderError.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/platform/async/Operation.h>
#include <VanticRestKit/platform/dispatch/DispatchQueue.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace VanticRestKit {

/// The options of `loadAll` itself; `LoadOptions` are passed when it is started.
struct LoadAllOptions {
    /// How many loads run at once; at least one.
    std::size_t limit = 6;
};

namespace detail {

/// One start of `loadAll`. Its bookkeeping runs on its own serial queue.
template <class T>
class LoadAllCall final : public PendingCall, public std::enable_shared_from_this<LoadAllCall<T>> {
public:
    using One = Result<T, LoaderError>;
    using Completion = UniqueFunction<void(std::vector<One>)>;

    LoadAllCall(std::vector<Resource<T>> resources, LoadAllOptions limits, LoadOptions options,
                Completion completion)
        : resources_(std::move(resources)),
          limit_(std::max<std::size_t>(limits.limit, 1)),
          on_(std::move(options.on)),
          deadline_(options.deadline),
          stop_(std::move(options.stop)),
          completion_(std::move(completion)),
          outcomes_(resources_.size()),
          handles_(resources_.size()) {}

    void begin() override {
        begun_ = std::chrono::steady_clock::now();
        queue_.async([self = this->shared_from_this()] { self->startMore(); });
    }

    void cancel() override {
        queue_.async([self = this->shared_from_this()] {
            self->isCancelled_ = true;
            for (const Cancellable& handle : self->handles_) handle.cancel();
            self->startMore();
        });
    }

    void drop() override {
        isDropped_.store(true);
        queue_.async([self = this->shared_from_this()] { self->release(); });
    }

private:
    // Everything below runs on the queue.

    void startMore() {
        if (isDropped_.load()) return;
        while (next_ < resources_.size() && (inFlight_ < limit_ || isCancelled_)) startNext();
        if (ended_ == resources_.size()) deliverOnce();
    }

    void startNext() {
        const std::size_t index = next_++;
        ++inFlight_;
        LoadOptions options{.on = queue_, .stop = stop_};
        if (deadline_) options.deadline = *deadline_ - (std::chrono::steady_clock::now() - begun_);
        // A load that is started after the cancellation gets a token whose stop is already requested, so it sends
        // nothing.
        if (isCancelled_) options.stop = stopped();
        handles_[index] = resources_[index].start(std::move(options),
                                                  [self = this->shared_from_this(), index](One outcome) {
                                                      self->ended(index, std::move(outcome));
                                                  });
    }

    void ended(std::size_t index, One outcome) {
        outcomes_[index].emplace(std::move(outcome));
        handles_[index].detach();
        --inFlight_;
        ++ended_;
        startMore();
    }

    void deliverOnce() {
        if (std::exchange(isDelivered_, true)) return;
        if (on_) {
            on_->async([self = this->shared_from_this()] { self->deliver(); });
        } else {
            deliver();
        }
    }

    void deliver() {
        if (isDropped_.exchange(true)) return;
        std::vector<One> outcomes;
        outcomes.reserve(outcomes_.size());
        for (std::optional<One>& outcome : outcomes_) outcomes.push_back(*std::move(outcome));
        Completion completion = std::move(completion_);
        completion(std::move(outcomes));
    }

    void release() {
        if (isDelivered_) return;
        const Completion completion = std::move(completion_);
        const std::vector<Cancellable> handles = std::move(handles_);
        handles_.clear();
    }

    static std::stop_token stopped() {
        std::stop_source source;
        source.request_stop();
        return source.get_token();
    }

    const std::vector<Resource<T>> resources_;
    const std::size_t limit_;
    const std::optional<DispatchQueue> on_;
    const std::optional<std::chrono::duration<double>> deadline_;
    const std::stop_token stop_;
    Completion completion_;
    const DispatchQueue queue_{"VanticRestKit loadAll"};
    std::chrono::steady_clock::time_point begun_{};
    std::atomic<bool> isDropped_{false};
    std::vector<std::optional<One>> outcomes_;
    std::vector<Cancellable> handles_;
    std::size_t next_ = 0;
    std::size_t inFlight_ = 0;
    std::size_t ended_ = 0;
    bool isCancelled_ = false;
    bool isDelivered_ = false;
};

template <class T>
class LoadAllSource final : public OperationSource<std::vector<Result<T, LoaderError>>> {
public:
    using Outcome = std::vector<Result<T, LoaderError>>;

    LoadAllSource(std::vector<Resource<T>> resources, LoadAllOptions options)
        : resources_(std::move(resources)), options_(options) {}

    std::shared_ptr<PendingCall> prepare(LoadOptions options,
                                         UniqueFunction<void(Outcome)> completion) const override {
        return std::make_shared<LoadAllCall<T>>(resources_, options_, std::move(options),
                                                std::move(completion));
    }
    bool needsCurrentQueue() const override {
        return std::any_of(resources_.begin(), resources_.end(),
                           [](const Resource<T>& resource) { return resource.needsCurrentQueue(); });
    }
    Outcome failed(Error error) const override {
        return Outcome(resources_.size(), Failure(LoaderError::serverError(std::move(error))));
    }

private:
    const std::vector<Resource<T>> resources_;
    const LoadAllOptions options_;
};

}  // namespace detail

/// Loads all of `resources`, at most `options.limit` at once. The outcome lists their outcomes in the order of
/// `resources`; a failure of one does not affect the others. Cancelling, the stop token and the deadline end all
/// unfinished loads, each with its own error; no further request is sent. Delivered on the queue of the options, or on
/// its own queue if they name none.
///
/// ```cpp
/// auto results = co_await loadAll(std::move(shows), {.limit = 4}).value({.deadline = 10s});
/// ```
template <class T>
Operation<std::vector<Result<T, LoaderError>>> loadAll(std::vector<Resource<T>> resources,
                                                       LoadAllOptions options = {}) {
    return Operation<std::vector<Result<T, LoaderError>>>(
        std::make_shared<const detail::LoadAllSource<T>>(std::move(resources), options));
}

}  // namespace VanticRestKit
