#pragma once

/// \file
/// A transport whose transfers are answered by the test in any order, or by a script.

#include <Core/FakeSession.h>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <thread>

namespace VanticRestKit::test {

/// Calls back on its own queue, which has its own thread, unless another queue is given.
class ScriptedSession final : public NetworkSession {
public:
    /// Returns the reply to a request. Runs on the queue.
    using Script = std::function<Reply(const URLRequest&)>;

    /// Holds each transfer until the test answers it.
    ScriptedSession() = default;
    /// Answers each transfer with the result of `script`.
    explicit ScriptedSession(Script script) : script_(std::make_shared<const Script>(std::move(script))) {}

    void loadData(LoadDataArguments arguments) override {
        run({.request = std::move(arguments.fromURLRequest).value(),
             .completion = std::move(arguments.completionHandler).value()});
    }

    Cancellable start(LoadDataArguments arguments) override {
        const Event cancelled;
        run({.request = std::move(arguments.fromURLRequest).value(),
             .completion = std::move(arguments.completionHandler).value(),
             .cancelled = cancelled});
        return Cancellable([cancelled] { cancelled.signal(); });
    }

    DispatchQueue deliveryQueue() const override { return queue_; }

    AnyPublisher<Answer> loadDataPublisher(LoadDataPublisherArguments) override {
        ADD_FAILURE() << "operations on user data use no publisher";
        return AnyPublisher<Answer>::create(
            [](const Subscriber<Answer, Error>&) { return Cancellable([] {}); });
    }

    /// The request of transfer number `index`, counted from 0. Waits until it has started.
    URLRequest request(std::size_t index) {
        std::unique_lock lock(mutex_);
        if (hasStarted(lock, index)) return transfers_[index].request;
        return URLRequest(*URL::make("https://never.started/"));
    }

    /// Answers a transfer on `queue`, after the blocks posted there before. Waits until the transfer has started, not
    /// for the answer.
    Event post(std::size_t index, Reply reply, const DispatchQueue& queue) {
        const Event ended;
        std::unique_lock lock(mutex_);
        if (!hasStarted(lock, index)) return ended;
        queue.async([ended, completion = std::move(transfers_[index].completion),
                     reply = std::move(reply)]() mutable {
            end(completion, std::move(reply));
            ended.signal();
        });
        return ended;
    }

    /// Answers a transfer and waits until its completion has returned.
    void answer(std::size_t index, Reply reply) { EXPECT_TRUE(post(index, std::move(reply), queue_).wait()); }

    /// Answers a transfer on a separate thread once it has started.
    Event postWhenStarted(std::size_t index, Reply reply) {
        const Event ended;
        DispatchQueue::withOwnThread("answer").async(
            [this, index, ended, reply = std::move(reply)]() mutable {
                answer(index, std::move(reply));
                ended.signal();
            });
        return ended;
    }

    /// Drops all open and future transfers, since an open transfer can hold this session through its completion.
    void abandon() {
        std::vector<Transfer> open;
        const std::lock_guard lock(mutex_);
        open.swap(transfers_);
        isAbandoned_ = true;
    }

    /// Waits until the transfer is cancelled. Returns whether it was.
    bool awaitCancel(std::size_t index) {
        std::unique_lock lock(mutex_);
        if (!hasStarted(lock, index)) return false;
        const Event cancelled = transfers_[index].cancelled;
        lock.unlock();
        return cancelled.wait();
    }

    /// Whether the transfer has been cancelled.
    bool isCancelled(std::size_t index) {
        std::unique_lock lock(mutex_);
        return hasStarted(lock, index) && transfers_[index].cancelled.count() > 0;
    }

    /// The number of started transfers.
    std::size_t count() const {
        const std::lock_guard lock(mutex_);
        return transfers_.size();
    }

    const DispatchQueue& queue() const { return queue_; }

private:
    struct Transfer {
        URLRequest request;
        Completion completion;
        /// Signalled if the transfer was started by `start` and is cancelled.
        Event cancelled{};
    };

    void run(Transfer transfer) {
        if (script_) {
            queue_.async([script = script_, transfer = std::move(transfer)]() mutable {
                end(transfer.completion, (*script)(transfer.request));
            });
            return;
        }
        const std::lock_guard lock(mutex_);
        if (isAbandoned_) return;
        transfers_.push_back(std::move(transfer));
        changed_.notify_all();
    }

    static void end(Completion& completion, Reply reply) {
        completion(std::move(reply.data), std::move(reply.response), std::move(reply.error));
    }

    bool hasStarted(std::unique_lock<std::mutex>& lock, std::size_t index) {
        const bool has = changed_.wait_for(lock, std::chrono::seconds(30),
                                           [this, index] { return transfers_.size() > index; });
        EXPECT_TRUE(has) << "transfer " << index << " was not started";
        return has;
    }

    const DispatchQueue queue_ = DispatchQueue::withOwnThread("scripted session");
    const std::shared_ptr<const Script> script_;
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<Transfer> transfers_;
    bool isAbandoned_ = false;
};

}  // namespace VanticRestKit::test
