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

/// One request on its way. Nothing goes out before `resume()`.
///
/// The task goes on when its last handle is gone, and so does it when the session's is. Any thread may call.
class VRK_EXPORT URLSessionDataTask {
public:
    ~URLSessionDataTask();
    URLSessionDataTask(const URLSessionDataTask&) = delete;
    URLSessionDataTask& operator=(const URLSessionDataTask&) = delete;

    /// Starts the task. Does nothing from the second call on, and nothing to a cancelled task.
    void resume();

    /// Ends the task: its connection is closed, or its stream reset, and the completion gets
    /// `URLErrorCode::cancelled` on the delegate queue. Does nothing to a task that has ended.
    void cancel();

    /// The bytes of the body that have come, as they come over the wire, and how many there will be: -1 if that is not
    /// known (yet). After a redirect they count the body of the last answer.
    std::int64_t countOfBytesReceived() const noexcept;
    /// How many bytes there will be; -1 if that is not known.
    std::int64_t countOfBytesExpectedToReceive() const noexcept;
    /// The bytes of the request's body that went out, and how many there are.
    std::int64_t countOfBytesSent() const noexcept;
    /// How many bytes the body of the request has.
    std::int64_t countOfBytesExpectedToSend() const noexcept;

private:
    friend class URLSession;

    URLSessionDataTask(std::shared_ptr<detail::Transport> transport,
                       std::shared_ptr<detail::Transfer> transfer);

    std::shared_ptr<detail::Transport> transport_;
    std::shared_ptr<detail::Transfer> transfer_;
};

/// Runs requests. All of a session's requests share its connections, so an application needs one session.
///
/// Completions and publishers deliver on the session's delegate queue: one serial queue with a thread of its
/// own, never the caller's thread. A completion that takes long holds up other completions, but no transfer.
/// A completion must not throw: that ends the process, as for every block of a `DispatchQueue`.
/// A request that cannot be sent reports that there too. Any thread may call, a completion included.
///
/// If the system gives no thread for the session, a load fails with `URLErrorCode::unknown`; its completion then runs
/// on the calling thread, inside `resume()`, if there is none for the delegate queue either.
///
/// A session belongs to the process that made it. In a child made by `fork` its loads fail at once with
/// `URLErrorCode::unknown`; what the parent had started goes on in the parent only. A child makes a session of its
/// own.
///
/// The session's threads block all signals but those of faults, so that none of a host's handlers runs there. While
/// completions run, their thread has the signal mask of the thread that started the session's first load: a process
/// started in a completion inherits that one.
///
/// Requests go to http and https only, through no proxy but that of the configuration, with certificates and host names
/// verified. Redirects are followed as the configuration says, at most twenty by default: 303 turns every method but HEAD into GET,
/// 301 and 302 turn POST into GET, and what tells who is asking stays with the origin it was meant for. Each request gets
/// the cookies of the configuration's storage, and those of its answers are stored there. Nothing is sent twice, with one
/// exception: a GET that went out on a connection which the server had given up already goes out on another one.
class VRK_EXPORT URLSession {
public:
    /// Called once with body and response, or with an error. A body is present when there is no error, if
    /// only with no bytes; a response may stand beside an error that came behind the headers.
    using Completion =
        UniqueFunction<void(std::optional<Data>, std::shared_ptr<const URLResponse>, std::optional<Error>)>;
    /// A body with its response.
    using Output = std::pair<Data, std::shared_ptr<const URLResponse>>;

    /// A session of its own, with its own connections and threads. Any thread.
    static std::shared_ptr<URLSession> make(URLSessionConfiguration configuration);
    ~URLSession();
    URLSession(const URLSession&) = delete;
    URLSession& operator=(const URLSession&) = delete;

    /// What the session was made with.
    const URLSessionConfiguration& configuration() const noexcept { return configuration_; }

    /// The queue on which completions and publishers deliver.
    const DispatchQueue& delegateQueue() const noexcept;

    /// A task for `request`. Its completion is called once, and let go on the delegate queue; a task that is
    /// neither resumed nor cancelled never calls it. `metrics`, unless it is empty, gets the records of the requests;
    /// `progress`, unless it is empty, is told how far the task is, on the delegate queue too.
    std::shared_ptr<URLSessionDataTask> dataTask(URLRequest request, Completion completionHandler,
                                                 MetricsReceiver metrics = {},
                                                 ProgressReceiver progress = {});

    /// A publisher of the one answer to `request`. Each subscription sends the request anew; cancelling it
    /// ends the transfer. The publisher keeps the session's connections, not the `URLSession`. `metrics`, unless it is
    /// empty, gets the records of the requests of all subscriptions.
    AnyPublisher<Output, Error> dataTaskPublisher(URLRequest request, MetricsReceiver metrics = {});

    /// Opens a connection to the host of `url`, TLS included, so that the next request to it need not wait for one. It
    /// sends a HEAD of `url`, since a connection of HTTP/1.1 on which nothing was asked is not kept: name a cheap one.
    /// Its outcome is not told; the next request will meet a failure itself.
    void preconnect(const URL& url);

    /// Starts no task any more: those resumed from now on fail with `URLErrorCode::unknown`. Those under way go on to
    /// their end. Returns at once.
    void finishTasksAndInvalidate();
    /// The same, and ends those under way as `cancel()` does.
    void invalidateAndCancel();

    /// Closes the connections that are idle, which is wise when the network has changed: they may lead nowhere now.
    /// What is under way is left alone. Returns at once.
    void closeIdleConnections();

private:
    explicit URLSession(URLSessionConfiguration configuration);

    URLSessionConfiguration configuration_;
    std::shared_ptr<detail::Transport> transport_;
};

}  // namespace VanticRestKit
