#pragma once

/// \file
/// `URLSession`: runs requests over HTTP.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/dispatch/DispatchQueue.h>
#include <VanticRestKit/platform/dispatch/UniqueFunction.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/http/LoadProgress.h>
#include <VanticRestKit/platform/http/RequestMetrics.h>
#include <VanticRestKit/platform/http/URLRequest.h>
#include <VanticRestKit/platform/http/URLResponse.h>
#include <VanticRestKit/platform/http/URLSessionConfiguration.h>
#include <VanticRestKit/platform/publisher/AnyPublisher.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <utility>

namespace VanticRestKit {

namespace detail {
class Transfer;
class Transport;
}  // namespace detail

/// One request of a session. Nothing is sent before `resume()`.
///
/// A started task continues after its last handle, and even the session's, is released. Thread-safe.
class VRK_EXPORT URLSessionDataTask {
public:
    ~URLSessionDataTask();
    URLSessionDataTask(const URLSessionDataTask&) = delete;
    URLSessionDataTask& operator=(const URLSessionDataTask&) = delete;

    /// Starts the task. Has no effect on a started or cancelled task.
    void resume();

    /// Cancels the task: its connection is closed, or its stream reset, and the completion gets
    /// `URLErrorCode::cancelled` on the delegate queue. Has no effect on a finished task.
    void cancel();

    /// The number of body bytes received, as counted on the wire. After a redirect, those of the last response.
    std::int64_t countOfBytesReceived() const noexcept;
    /// The expected number of body bytes on the wire; -1 while it is unknown.
    std::int64_t countOfBytesExpectedToReceive() const noexcept;
    /// The number of bytes of the request's body that have been sent.
    std::int64_t countOfBytesSent() const noexcept;
    /// The size of the request's body in bytes.
    std::int64_t countOfBytesExpectedToSend() const noexcept;

private:
    friend class URLSession;

    URLSessionDataTask(std::shared_ptr<detail::Transport> transport,
                       std::shared_ptr<detail::Transfer> transfer);

    std::shared_ptr<detail::Transport> transport_;
    std::shared_ptr<detail::Transfer> transfer_;
};

/// Runs requests. All requests of a session share its connections, so an application needs only one session.
///
/// Completions and publishers deliver on the session's delegate queue: a serial queue with its own thread, never the
/// caller's thread. A slow completion delays other completions, but no transfer. A completion must not throw: that ends
/// the process, as for every block of a `DispatchQueue`. Errors of requests that cannot be sent are delivered there
/// too. Thread-safe; completions may call it.
///
/// If the system cannot start the session's I/O thread, loads fail with `URLErrorCode::unknown`; if it cannot start the
/// delegate queue's thread either, their completions run on the calling thread, inside `resume()`.
///
/// A session belongs to the process that made it. In a child made by `fork` its loads fail at once with
/// `URLErrorCode::unknown`; loads that the parent started continue in the parent only. A child must make its own
/// session.
///
/// The session's threads block all signals except those for faults, so a host's signal handlers never run there. While
/// completions run, their thread has the signal mask of the thread that started the session's first load; a process
/// started in a completion inherits that mask.
///
/// Only http and https URLs are requested. No proxy is used except the configuration's, and certificates and host names
/// are verified. Redirects are followed as configured, at most twenty by default: 303 changes every method except HEAD
/// to GET, 301 and 302 change POST to GET, and headers that identify the user are sent only to the original origin.
/// Cookies are taken from and stored in the configuration's storage. No request is sent twice, with one exception: a
/// GET that was sent on a connection which the server had already closed is sent again on another one.
class VRK_EXPORT URLSession {
public:
    /// Called once with a body and response, or with an error. Without an error there is always a body, possibly of
    /// zero bytes. Both a response and an error are passed if the error occurred after the headers.
    using Completion =
        UniqueFunction<void(std::optional<Data>, std::shared_ptr<const URLResponse>, std::optional<Error>)>;
    /// A body with its response.
    using Output = std::pair<Data, std::shared_ptr<const URLResponse>>;

    /// Makes a session with its own connections and threads. Thread-safe.
    static std::shared_ptr<URLSession> make(URLSessionConfiguration configuration);
    ~URLSession();
    URLSession(const URLSession&) = delete;
    URLSession& operator=(const URLSession&) = delete;

    /// The configuration that the session was made with.
    const URLSessionConfiguration& configuration() const noexcept { return configuration_; }

    /// The queue on which completions and publishers deliver.
    const DispatchQueue& delegateQueue() const noexcept;

    /// Makes a task for `request`. Its completion is called once, and destroyed on the delegate queue; a task that is
    /// neither resumed nor cancelled never calls it. `metrics` receives the records of the requests, and `progress` the
    /// progress of the task, both on the delegate queue; either may be empty.
    std::shared_ptr<URLSessionDataTask> dataTask(URLRequest request, Completion completionHandler,
                                                 MetricsReceiver metrics = {},
                                                 ProgressReceiver progress = {});

    /// A publisher of the response to `request`. Each subscription sends the request again; cancelling it ends the
    /// transfer. The publisher keeps the session's connections alive, but not the `URLSession`. `metrics` receives the
    /// records of the requests of all subscriptions; it may be empty.
    AnyPublisher<Output, Error> dataTaskPublisher(URLRequest request, MetricsReceiver metrics = {});

    /// Opens a connection to the host of `url`, including TLS, so that the next request to it need not wait for one.
    /// Sends a HEAD request for `url`, because an unused HTTP/1.1 connection is not kept: choose a URL that is cheap
    /// for the server. The result is not reported; if connecting fails, the next request fails too.
    void preconnect(const URL& url);

    /// Invalidates the session: tasks resumed from now on fail with `URLErrorCode::unknown`. Running tasks finish.
    /// Returns at once.
    void finishTasksAndInvalidate();
    /// The same, and cancels running tasks as `cancel()` does.
    void invalidateAndCancel();

    /// Closes idle connections. Call it when the network has changed, since they may be dead. Running tasks are not
    /// affected. Returns at once.
    void closeIdleConnections();

private:
    explicit URLSession(URLSessionConfiguration configuration);

    URLSessionConfiguration configuration_;
    std::shared_ptr<detail::Transport> transport_;
};

}  // namespace VanticRestKit
