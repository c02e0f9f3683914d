#pragma once

/// \file
/// A service whose attempts a test ends one by one, and a retry environment whose pauses a test ends.

#include <VanticRestKit/Core/NetworkError.h>
#include <VanticRestKit/Core/Retrying.h>
#include <VanticRestKit/Core/Serviceable.h>
#include <VanticRestKit/platform/http/HTTPURLResponse.h>

#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit::test {

inline URLRequest requestOf(const std::string& method) {
    URLRequest request(*URL::make("https://api.example.test/v2/time"));
    request.setHTTPMethod(method);
    return request;
}

inline Error statusError(std::int64_t status, HTTPURLResponse::HeaderFields headers = {}) {
    const URLRequest request = requestOf("GET");
    const auto response = std::make_shared<const HTTPURLResponse>(request.url(), status, std::move(headers));
    return NetworkError::httpError(request, response, std::nullopt);
}

/// Answers at once with the next outcome of `script`, or keeps the attempt open if `script` is empty. For one thread.
class ScriptedService final : public Serviceable {
public:
    using Outcome = Result<Data, Error>;

    void fetch(FetchArguments arguments) override {
        forms.push_back("fetch");
        report(arguments.metrics);
        run(std::move(arguments.with).value());
    }
    AnyPublisher<Data> fetch() override { return publisher({}); }
    AnyPublisher<Data> publisher(MetricsReceiver metrics) override {
        return AnyPublisher<Data>::create([this, metrics](const Subscriber<Data, Error>& subscriber) {
            forms.push_back("publisher");
            report(metrics);
            run([subscriber](Outcome outcome) {
                if (!outcome) return subscriber.complete(Failure(std::move(outcome).error()));
                subscriber.receive(std::move(*outcome));
                subscriber.complete();
            });
            return Cancellable([this] { ++cancels; });
        });
    }
    Cancellable start(FetchArguments arguments) override {
        forms.push_back("start");
        report(arguments.metrics);
        run(std::move(arguments.with).value());
        return Cancellable([this] { ++cancels; });
    }
    DispatchQueue deliveryQueue() const override { return queue; }
    Error endedEarly(URLErrorCode code) const override {
        return NSError("early", static_cast<std::int64_t>(code));
    }

    /// Ends the oldest open attempt.
    void answer(Outcome outcome) {
        Completion completion = std::move(open.front());
        open.pop_front();
        completion(std::move(outcome));
    }

    std::deque<Outcome> script;
    std::deque<Completion> open;
    std::vector<std::string> forms;
    int cancels = 0;
    const DispatchQueue queue{"scripted"};

private:
    static void report(const MetricsReceiver& metrics) {
        if (metrics) metrics(RequestMetrics());
    }
    void run(Completion completion) {
        if (script.empty()) {
            open.push_back(std::move(completion));
            return;
        }
        Outcome next = std::move(script.front());
        script.pop_front();
        completion(std::move(next));
    }
};

/// The pauses between retries. Each lasts until the test ends it. For one thread.
class ManualPauses {
public:
    ManualPauses() = default;
    ManualPauses(const ManualPauses&) = delete;
    ManualPauses& operator=(const ManualPauses&) = delete;
    /// Destroying a block may cancel its own pause, so the map must be empty by then.
    ~ManualPauses() { const std::map<std::size_t, Block> dropped = std::exchange(waiting_, {}); }

    RetryEnvironment environment() {
        return {.now = [this] { return now; },
                .random = [this] { return random; },
                .after =
                    [this](std::chrono::duration<double> pause, Block block) {
                        lengths.push_back(pause.count());
                        const std::size_t number = lengths.size();
                        waiting_[number] = std::move(block);
                        return Cancellable([this, number] { waiting_.erase(number); });
                    }};
    }

    /// Ends the oldest pause. False if there is none.
    bool pass() {
        if (waiting_.empty()) return false;
        Block block = std::move(waiting_.begin()->second);
        waiting_.erase(waiting_.begin());
        block();
        return true;
    }
    std::size_t waiting() const { return waiting_.size(); }

    Date now{};
    /// 0 gives the shortest pause, half as long as the longest.
    double random = 0;
    std::vector<double> lengths;

private:
    std::map<std::size_t, Block> waiting_;
};

}  // namespace VanticRestKit::test
