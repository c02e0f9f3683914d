#pragma once

/// \file
/// `Script`: the rules, the requests and the open transfers of a `ScriptedService`.

#include <VanticRestKit/Core/NetworkSession.h>
#include <VanticRestKit/platform/dispatch/DispatchQueue.h>
#include <VanticRestKit/Testing/Answer.h>
#include <VanticRestKit/Testing/AskedRequest.h>
#include <VanticRestKit/Testing/RequestPattern.h>

#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace VanticRestKit::Testing::detail {

/// The transport of a `ScriptedService`. Any thread.
class Script final : public NetworkSession, public std::enable_shared_from_this<Script> {
public:
    /// An answer, or a function that returns it.
    using Reply = std::variant<Testing::Answer, std::function<Testing::Answer(const AskedRequest&)>>;

    /// The number of requests that a rule expects.
    struct Expected {
        std::size_t min = 0;
        std::optional<std::size_t> max{};
    };

    explicit Script(DispatchQueue queue) : queue_(std::move(queue)) {}

    void loadData(LoadDataArguments arguments) override;
    AnyPublisher<Answer> loadDataPublisher(LoadDataPublisherArguments arguments) override;
    Cancellable start(LoadDataArguments arguments) override;
    DispatchQueue deliveryQueue() const override { return queue_; }

    /// Adds a rule and returns its index.
    std::size_t addRule(RequestPattern pattern, Expected expected);
    void addAnswer(std::size_t rule, Reply reply);
    void setExpected(std::size_t rule, Expected expected);
    void addNext(Testing::Answer answer);
    void holdAll();

    std::vector<AskedRequest> asked() const;
    std::size_t openRequests() const;
    /// Answers the oldest held request that matches, with `answer` if there is one.
    bool answerNow(const RequestPattern* pattern, std::optional<Testing::Answer> answer);
    std::string problems() const;
    /// Drops the open transfers and all later ones.
    void close();

private:
    struct Rule {
        RequestPattern pattern;
        Expected expected;
        std::vector<Reply> replies{};
        std::size_t count = 0;
    };
    /// A request whose handler has not been called yet.
    struct Transfer {
        std::size_t request;
        Testing::Answer answer;
        Completion handler;
        bool isHeld;
    };

    std::size_t begin(URLRequest request, Completion handler);
    std::optional<Reply> scripted(const AskedRequest& asked);
    void send(std::size_t request, Testing::Answer::Seconds delay);
    void deliver(std::size_t request);
    void cancel(std::size_t request);
    std::string closestRule(const AskedRequest& asked) const;
    std::string missed(const Rule& rule) const;
    std::string closestRequest(const Rule& rule) const;

    const DispatchQueue queue_;
    mutable std::mutex mutex_;
    std::vector<Rule> rules_;
    std::deque<Testing::Answer> next_;
    std::vector<AskedRequest> asked_;
    std::vector<std::size_t> unexpected_;
    std::deque<Transfer> open_;
    bool holdsAll_ = false;
    bool isClosed_ = false;
};

}  // namespace VanticRestKit::Testing::detail
