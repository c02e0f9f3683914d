#pragma once

/// \file
/// `ScriptedService`: a service with scripted answers, without a socket.

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

/// The rule of a script for the requests that match a pattern. A handle; copies refer to the same rule.
class ScriptRule {
public:
    /// Adds an answer. The first request gets the first answer, and so on; the last answer is repeated.
    ScriptRule& answer(Answer answer);
    /// Adds a function that returns the answer to a request, such as `SampleAnswers`. It is called on the thread that
    /// sends the request, so possibly by several threads at once.
    ScriptRule& answerBy(std::function<Answer(const AskedRequest&)> function);

    /// Expects exactly `count` requests. Fewer are reported as a problem; further ones do not match this rule. Without
    /// `times` or `atLeastOnce`, any number of requests is accepted, including none.
    ScriptRule& times(std::size_t count);
    /// `times(1)`.
    ScriptRule& once() { return times(1); }
    /// Expects no request.
    ScriptRule& never() { return times(0); }
    /// Expects at least one request.
    ScriptRule& atLeastOnce();

private:
    friend class ScriptedService;
    ScriptRule(std::shared_ptr<detail::Script> script, std::size_t index)
        : script_(std::move(script)), index_(index) {}

    std::shared_ptr<detail::Script> script_;
    std::size_t index_;
};

/// A service in memory. Its answers are processed like those of the network: statuses and errors result in the same
/// errors as in production.
///
/// A rule answers by path, `answerNext` by order. Rules take precedence, in the order in which they were added. A
/// request without a matching rule or a remaining answer fails with an error of the domain `Answer::errorDomain`, and
/// `problems()` reports it.
///
/// Copies refer to the same service. Any thread may use it. Answers are delivered on the queue of the executor or,
/// without one, on a queue with its own thread. When the last copy and the last rule have been destroyed, open requests
/// are dropped without an outcome, and so are later requests.
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
    /// Delivers on its own thread, for code that blocks.
    ScriptedService();
    /// Delivers when the executor runs, for tests on one thread.
    explicit ScriptedService(const ManualExecutor& executor);
    /// Delivers on `queue`.
    explicit ScriptedService(DispatchQueue queue);

    /// Adds a rule for the requests that match a pattern, such as "GET /v2/time". Without an answer, it answers with
    /// 200 and "{}".
    ScriptRule on(RequestPattern pattern) const;
    /// Adds a rule that expects exactly one request, unless its expectation is changed.
    ScriptRule expect(RequestPattern pattern) const;
    /// Sets the answer to the next request that matches no rule.
    void answerNext(Answer answer) const;

    /// All requests so far, in order of arrival.
    std::vector<AskedRequest> asked() const;
    /// The number of requests so far that match a pattern.
    std::size_t countOf(const RequestPattern& pattern) const;
    /// The number of requests whose answers are held or delayed.
    std::size_t openRequests() const;

    /// Holds the answers to all requests until `answerNow`, even if they are not `held()`.
    void holdAll() const;
    /// Delivers the scripted answer to the oldest held request. Returns whether there was one. The answer is posted to
    /// the queue, so an executor has to run it.
    bool answerNow() const;
    /// The same for the oldest held request that matches a pattern.
    bool answerNow(const RequestPattern& pattern) const;
    /// The same with another answer, which is delivered without its delay.
    bool answerNow(const RequestPattern& pattern, Answer answer) const;

    /// A readable list of problems: unmet expectations, each with the number of requests and the closest request;
    /// requests without a rule or answer, each with the closest rule; unused answers of `answerNext`. An empty string
    /// if there are none.
    std::string problems() const;

    /// The transport, for a host that creates its own `NetworkServiceble`.
    std::shared_ptr<NetworkSession> session() const;

private:
    std::shared_ptr<detail::Script> script_;
};

}  // namespace VanticRestKit::Testing
