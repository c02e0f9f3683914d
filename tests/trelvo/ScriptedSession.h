#pragma once

/// \file
/// A transport whose transfers a test answers one by one, in any order, or by a script.

#include <Core/FakeSession.h>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <thread>

namespace VanticRestKit::test {

/// Calls back on its own queue, which has a thread of its own, unless told to do it elsewhere.
class ScriptedSession final : public NetworkSession {
public:
    /// What to answer a request with. Runs on the queue.
    using Script = std::function<Reply(const URLRequest&)>;

    /// Keeps each transfer until it is answered.
    ScriptedSession() = default;
    /// Answers each transfer by `script`.
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

    /// The request of the transfer that started as number `index`, counted from 0. Waits for it.
    URLRequest request(std::size_t index) {
        std::unique_lock lock(mutex_);
        if (hasStarted(lock, index)) return transfers_[index].request;
        return URLRequest(*URL::make("https://never.started/"));
    }

    /// Answers a transfer on `queue` when what stands there is done. Waits for the transfer, not for the
    /// answer.
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

    /// Answers a transfer and waits until all that its completion does is done.
    void answer(std::size_t index, Reply reply) { EXPECT_TRUE(post(index, std::move(reply), queue_).wait()); }

    /// Answers a transfer on a thread of its own once it has started.
    Event postWhenStarted(std::size_t index, Reply reply) {
        const Event ended;
        DispatchQueue::withOwnThread("answer").async(
            [this, index, ended, reply = std::move(reply)]() mutable {
                answer(index, std::move(reply));
                ended.signal();
            });
        return ended;
    }

    /// Drops what is open, and whatever is still to start: what an open transfer holds may hold this session.
    void abandon() {
        std::vector<Transfer> open;
        const std::lock_guard lock(mutex_);
        open.swap(transfers_);
        isAbandoned_ = true;
    }

    /// Waits until the transfer was cancelled. Whether it was.
    bool awaitCancel(std::size_t index) {
        std::unique_lock lock(mutex_);
        if (!hasStarted(lock, index)) return false;
        const Event cancelled = transfers_[index].cancelled;
        lock.unlock();
        return cancelled.wait();
    }

    /// Whether the transfer was cancelled by now.
    bool isCancelled(std::size_t index) {
        std::unique_lock lock(mutex_);
        return hasStarted(lock, index) && transfers_[index].cancelled.count() > 0;
    }

    /// How many transfers have started.
    std::size_t count() const {
        const std::lock_guard lock(mutex_);
        return transfers_.size();
    }

    const DispatchQueue& queue() const { return queue_; }

private:
    struct Transfer {
        URLRequest request;
        Completion completion;
        /// Happens if the transfer was started by `start` and is cancelled.
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
