#pragma once

/// \file
/// `retrying`: a service that retries failed requests. Only used if a host asks for it.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/Core/RetryBudget.h>
#include <VanticRestKit/platform/date/Date.h>
#include <VanticRestKit/platform/dispatch/SharedFunction.h>
#include <VanticRestKit/platform/dispatch/UniqueFunction.h>
#include <VanticRestKit/platform/http/URLRequest.h>
#include <VanticRestKit/platform/publisher/Cancellable.h>
#include <VanticRestKit/Visibility.h>

#include <chrono>
#include <memory>

namespace VanticRestKit {

class Serviceable;

/// Clock, timer and random numbers of the retries, replaceable by tests. An empty function stands for the real one. All
/// may be called on any thread, several at once.
struct RetryEnvironment {
    /// The current time, used for a `Retry-After` with a date.
    SharedFunction<Date()> now{};
    /// A random number in [0, 1).
    SharedFunction<double()> random{};
    /// Calls the block once after a delay in seconds; the returned handle cancels that and destroys the block.
    SharedFunction<Cancellable(std::chrono::duration<double>, Block)> after{};
};

/// When and how often a request is retried. Copies share the budget: make one policy and copy it.
struct RetryPolicy {
    /// The maximum number of attempts, including the first. Below 2: no retries.
    int attempts = 3;

    /// The nominal length of the first pause; each later one is twice as long. The actual length is random, between
    /// half of that and all of it, so that clients that failed at the same time do not retry at the same time.
    std::chrono::duration<double> firstPause{0.5};

    /// The maximum pause. If the service asks for a longer one by `Retry-After`, the request is not retried.
    std::chrono::duration<double> maxPause{30};

    /// GET and HEAD are retried, since they change nothing. If this is set, PUT and DELETE are too, which may reach the
    /// service twice. Other methods are never retried.
    bool repeatsPutAndDelete = false;

    /// Null: limited by `attempts` only.
    std::shared_ptr<RetryBudget> budget = std::make_shared<RetryBudget>();

    /// Clock, random numbers and pauses; replaced in tests.
    RetryEnvironment environment{};
};

/// The arguments of `retrying`.
struct RetryingArguments {
    /// The service that runs the request; not null.
    Required<std::shared_ptr<Serviceable>> service;
    /// The request that it runs.
    Required<URLRequest> request;
    /// When and how often to retry.
    Required<RetryPolicy> policy;
};

/// A service that runs the request of `service` and retries it after a pause if `adviceOn` says that a retry may help.
/// Returns `service` itself if the method or the policy allows no retry.
///
/// All forms of a load work as without it. A failure that is not retried is delivered unchanged: that of the last
/// attempt. `logError` is called for each failed attempt, and an observer receives a record of each, with its number.
/// A cancellation ends the load immediately, even during a pause; the deadline of a load includes all attempts.
/// A pause is at least as long as the `Retry-After` of the answer. Decoding comes afterwards: a body that cannot be
/// decoded is not requested again.
///
///     std::shared_ptr<Serviceable> service(ServiceArguments arguments) const override {
///         const URLRequest request = arguments.withURLRequest;
///         return retrying(
///             {.service = Context::service(std::move(arguments)), .request = request, .policy = policy_});
///     }
VRK_EXPORT std::shared_ptr<Serviceable> retrying(RetryingArguments arguments);

}  // namespace VanticRestKit
