#pragma once

/// \file
/// `ScriptedService`: a service that answers from a script, without a socket.

#include <VanticRestKit/Core/NetworkSession.h>
#include <VanticRestKit/Testing/Answer.h>
#include <VanticRestKit/Testing/AskedRequest.h>
#include <VanticRestKit/Testing/ManualExecutor.h>
#include <VanticRestKit/Testing/RequestPattern.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit::Testing {

namespace detail {
class Script;
}

/// What a script does with the requests of one pattern. A handle; copies are one rule.
class ScriptRule {
public:
    /// Adds an answer. The first request gets the first one, and so on; the last one is repeated.
    ScriptRule& answer(Answer answer);
    /// The same with a function that makes the answer of a request, such as `SampleAnswers`. It is called on the thread of
    /// the request, by several at once if the requests are.
    ScriptRule& answerBy(std::function<Answer(const AskedRequest&)> function);

    /// Expects exactly `count` requests: fewer are a problem, and further ones pass this rule by. Without a call of
    /// this or of `atLeastOnce` any number is right, none included.
    ScriptRule& times(std::size_t count);
    /// `times(1)`.
    ScriptRule& once() { return times(1); }
    /// Expects that nothing of this pattern is asked.
    ScriptRule& never() { return times(0); }
    /// Expects one request or more.
    ScriptRule& atLeastOnce();

private:
    friend class ScriptedService;
    ScriptRule(std::shared_ptr<detail::Script> script, std::size_t index)
        : script_(std::move(script)), index_(index) {}

    std::shared_ptr<detail::Script> script_;
    std::size_t index_;
};

/// A service in the memory of the test. Its requests pass the same judgement as those of the network: statuses and
/// errors arrive as the errors that a host sees in production.
///
/// A rule answers by path, `answerNext` by order; rules are asked first, the oldest first. A request that no rule and no
/// answer is left for fails with an error of the domain `Answer::errorDomain`, and `problems()` tells of it.
///
/// Copies are one service. Any thread may call; answers are delivered on the queue of the executor, or, without one, on
/// a queue with a thread of its own. When the last copy and the last rule go, the requests that are open are dropped
/// without an outcome, and so is what is asked later.
///
/// ```cpp
/// ManualExecutor executor;
/// ScriptedService service(executor);
/// service.on("GET /v2/show/harbour-lights").answer(aShow().titled("Harbour Lights"));
/// Scripted<HostContext> context(service);
/// ...
/// EXPECT_EQ("", service.problems());
/// ```
class ScriptedService {
public:
    /// Delivers on a thread of its own: for code that waits.
    ScriptedService();
    /// Delivers when the executor runs: for tests on one thread.
    explicit ScriptedService(const ManualExecutor& executor);
    /// Delivers on `queue`.
    explicit ScriptedService(DispatchQueue queue);

    /// A rule for the requests of a pattern, such as "GET /v2/time". A rule without an answer answers 200 with "{}".
    ScriptRule on(RequestPattern pattern) const;
    /// The same, which has to be asked exactly once unless the rule is told otherwise.
    ScriptRule expect(RequestPattern pattern) const;
    /// Answers the next request that no rule is for, whatever it asks.
    void answerNext(Answer answer) const;

    /// All requests so far, in order of arrival.
    std::vector<AskedRequest> asked() const;
    /// How many requests have fitted a pattern so far.
    std::size_t countOf(const RequestPattern& pattern) const;
    /// Requests that have no answer yet, because theirs is held or delayed.
    std::size_t openRequests() const;

    /// Has every request wait for `answerNow`, also those whose answer is not `held()`.
    void holdAll() const;
    /// Answers the oldest held request with what the script has for it. Whether there was one. The answer is posted; an
    /// executor has to run it.
    bool answerNow() const;
    /// The same for the oldest held request of a pattern.
    bool answerNow(const RequestPattern& pattern) const;
    /// The same with another answer, which is sent at once.
    bool answerNow(const RequestPattern& pattern, Answer answer) const;

    /// What went wrong, for a person to read: expectations that were missed, each with what was asked and the request
    /// that came nearest to it; requests that nothing was scripted for, each with the nearest rule; answers of
    /// `answerNext` that are left. An empty string if all was as expected.
    std::string problems() const;

    /// The transport, for a host that makes a `NetworkServiceble` of its own.
    std::shared_ptr<NetworkSession> session() const;

private:
    std::shared_ptr<detail::Script> script_;
};

}  // namespace VanticRestKit::Testing
