#pragma once

/// \file
/// `retrying`: a service that sends a failed request again. Off unless a host asks for it.

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

/// Clock, timer and dice of the retries, for tests that bring their own. An empty function stands for the real one. All
/// may be called on any thread, several at once.
struct RetryEnvironment {
    /// The instant from which a `Retry-After` with a date counts.
    SharedFunction<Date()> now{};
    /// A number from 0 up to 1, without 1 itself.
    SharedFunction<double()> random{};
    /// Calls the block once, after a pause in seconds; the handle that it returns prevents that and drops the block.
    SharedFunction<Cancellable(std::chrono::duration<double>, Block)> after{};
};

/// When and how often a request is sent again. Copies share the budget: a host makes one policy and hands out copies.
struct RetryPolicy {
    /// How often a request is sent at most, the first time included. Below 2: never again.
    int attempts = 3;

    /// About how long the first pause is; each later one is twice as long. A pause takes a random length between half
    /// of that and the whole, so that clients that failed together do not come back together.
    std::chrono::duration<double> firstPause{0.5};

    /// No pause is longer. If the service asks for a longer one by `Retry-After`, the request is not sent again.
    std::chrono::duration<double> maxPause{30};

    /// GET and HEAD are repeated, which change nothing. With this, PUT and DELETE are too, which may reach the service
    /// twice. All others never are.
    bool repeatsPutAndDelete = false;

    /// Null: as many as `attempts` allows.
    std::shared_ptr<RetryBudget> budget = std::make_shared<RetryBudget>();

    /// Clock, random numbers and pauses; replaced in tests.
    RetryEnvironment environment{};
};

/// The arguments of `retrying`.
struct RetryingArguments {
    /// What runs the request; not null.
    Required<std::shared_ptr<Serviceable>> service;
    /// The request that it runs.
    Required<URLRequest> request;
    /// How often and when is tried again.
    Required<RetryPolicy> policy;
};

/// A service that runs the request of `service`, and runs it again after a pause if it failed in a way that
/// `adviceOn` calls worth another try. It returns `service` itself if the method or the policy allow no second try.
///
/// All forms of a load work as without it. A failure that is not repeated is delivered as it came: that of the last
/// attempt. `logError` is told of each attempt that failed, and an observer has a record of each, with its number. A cancel ends the load at once, in a pause too; a deadline
/// counts for the load as a whole. A pause is at least as long as the `Retry-After` of the answer. Decoding comes
/// afterwards: a body that does not decode is not asked for again.
///
///     std::shared_ptr<Serviceable> service(ServiceArguments arguments) const override {
///         const URLRequest request = arguments.withURLRequest;
///         return retrying(
///             {.service = Context::service(std::move(arguments)), .request = request, .policy = policy_});
///     }
VRK_EXPORT std::shared_ptr<Serviceable> retrying(RetryingArguments arguments);

}  // namespace VanticRestKit
