#pragma once

/// \file
/// A transport whose responses the test triggers.

#include <gtest/gtest.h>
#include <VanticRestKit/Core/NetworkSession.h>
#include <VanticRestKit/platform/dispatch/DispatchQueue.h>
#include <VanticRestKit/platform/http/HTTPURLResponse.h>

#include <support/Event.h>
#include <deque>
#include <mutex>
#include <vector>

namespace VanticRestKit::test {

/// What the transport passes to the callback.
struct Reply {
    std::optional<Data> data{};
    std::shared_ptr<const URLResponse> response{};
    std::optional<Error> error{};
};

inline std::shared_ptr<const HTTPURLResponse> httpResponse(std::int64_t status) {
    return std::make_shared<const HTTPURLResponse>(URL::make("https://api.example.test/v2/time"), status);
}

inline Reply answer(std::int64_t status, std::optional<Data> body) {
    return {.data = std::move(body), .response = httpResponse(status)};
}

inline Reply answer(std::int64_t status, const char* body) { return answer(status, Data(body)); }

inline Reply transportFailure(Error error, std::shared_ptr<const URLResponse> response = nullptr) {
    return {.response = std::move(response), .error = std::move(error)};
}

/// Holds each transfer until `reply`, then calls back on its own queue, which has its own thread.
class FakeSession final : public NetworkSession {
public:
    void loadData(LoadDataArguments arguments) override {
        {
            const std::lock_guard lock(mutex_);
            requests_.push_back(arguments.fromURLRequest.value());
            callbacks_.push_back(
                [handler = std::move(arguments.completionHandler).value()](Reply reply) mutable {
                    handler(std::move(reply.data), std::move(reply.response), std::move(reply.error));
                });
        }
        started.signal();
    }

    AnyPublisher<Answer> loadDataPublisher(LoadDataPublisherArguments arguments) override {
        const URLRequest request = arguments.fromURLRequest;
        return AnyPublisher<Answer>::create([this, request](const Subscriber<Answer, Error>& subscriber) {
            {
                const std::lock_guard lock(mutex_);
                requests_.push_back(request);
                callbacks_.push_back([subscriber](Reply reply) {
                    if (reply.error) {
                        subscriber.complete(Failure(*std::move(reply.error)));
                    } else {
                        subscriber.receive({*std::move(reply.data), std::move(reply.response)});
                        subscriber.complete();
                    }
                });
            }
            started.signal();
            return Cancellable([this] { cancelled.signal(); });
        });
    }

    /// Waits for a transfer to start, answers the oldest open one, and waits until the callback has returned.
    void reply(Reply reply) {
        ASSERT_TRUE(started.wait(++replies_)) << "no transfer was started";
        const Event done;
        queue_.async([this, reply = std::move(reply), done]() mutable {
            oldest()(std::move(reply));
            done.signal();
        });
        ASSERT_TRUE(done.wait());
    }

    std::vector<URLRequest> requests() const {
        const std::lock_guard lock(mutex_);
        return requests_;
    }

    const DispatchQueue& queue() const { return queue_; }

    const Event started;
    const Event cancelled;

private:
    using Callback = UniqueFunction<void(Reply)>;

    Callback oldest() {
        const std::lock_guard lock(mutex_);
        Callback callback = std::move(callbacks_.front());
        callbacks_.pop_front();
        return callback;
    }

    const DispatchQueue queue_ = DispatchQueue::withOwnThread("fake session");
    mutable std::mutex mutex_;
    std::vector<URLRequest> requests_;
    std::deque<Callback> callbacks_;
    int replies_ = 0;
};

}  // namespace VanticRestKit::test
