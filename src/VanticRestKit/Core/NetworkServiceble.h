#pragma once

/// \file
/// `NetworkServiceble`: runs a request on a session.

#include <VanticRestKit/Core/NetworkError.h>
#include <VanticRestKit/Core/NetworkSession.h>
#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/Core/Serviceable.h>
#include <VanticRestKit/platform/http/URLRequest.h>
#include <VanticRestKit/platform/url/URL.h>
#include <VanticRestKit/Visibility.h>

#include <memory>

namespace VanticRestKit {

/// Runs one request on a session, any number of times, and checks the answers.
///
/// A status below 400 with a body, even an empty one, is a success. Anything else is a `NetworkError`, which is also
/// passed to `logError` unless it is `notAHTTPResponse` or `internalSDKError`. Nothing is retried. Immutable, so any
/// thread may use it.
class VRK_EXPORT NetworkServiceble final : public Serviceable,
                                           public std::enable_shared_from_this<NetworkServiceble> {
public:
    /// The error of a request.
    using NetworkError = VanticRestKit::NetworkError;

    /// The arguments of `make` for a request.
    struct RequestArguments {
        /// The request to send.
        Required<URLRequest> with;
        /// Null means the shared session, `NetworkURLSession::sharedInstance().urlSesion`.
        std::shared_ptr<NetworkSession> and_{};
        /// May be empty.
        Required<LogError> logError;
    };
    /// The arguments of `make` for a URL.
    struct URLArguments {
        /// The URL to load by a GET.
        Required<URL> with;
        /// The session to send it on; empty for the shared one.
        std::shared_ptr<NetworkSession> and_{};
        /// Receives failures; may be empty.
        Required<LogError> logError;
    };

    /// `NetworkServiceble::make({.with = request, .logError = context.logError()})`
    static std::shared_ptr<NetworkServiceble> make(RequestArguments arguments);
    /// The same for a plain request: GET, no headers, 60 seconds.
    static std::shared_ptr<NetworkServiceble> make(URLArguments arguments);

    /// The request that is sent.
    const URLRequest& urlRequest() const noexcept { return urlRequest_; }
    /// The session that it is sent on.
    const std::shared_ptr<NetworkSession>& session() const noexcept { return session_; }
    /// What receives failures; may be empty.
    const LogError& logError() const noexcept { return logError_; }

    /// Runs the request once. The check, `logError` and the completion run on the queue on which the session calls
    /// back. A fetch does not keep this object alive: if it is destroyed before the answer, the completion receives
    /// `internalSDKError`.
    void fetch(FetchArguments arguments) override;

    /// A publisher of the body, which keeps this object alive. Each subscription starts its own transfer.
    ///
    /// A transport failure is delivered as the transport's own error and is not passed to `logError`. The activity
    /// counter is incremented once by this call and decremented at each answer and at each error: twice if an answer
    /// counts as a failure, and never if the subscription was cancelled.
    AnyPublisher<Data> fetch() override;

    /// The same, with the session's records of the requests passed to `metrics`.
    AnyPublisher<Data> publisher(MetricsReceiver metrics) override;

    /// Runs the request once and can be cancelled. Checks and errors are those of `fetch`; a cancelled request is not
    /// passed to `logError`.
    [[nodiscard]] Cancellable start(FetchArguments arguments) override;

    /// The session's delegate queue.
    DispatchQueue deliveryQueue() const override { return session_->deliveryQueue(); }

    /// `requestFailed` with the transport's error of `code`. Passed to `logError`, unless the request was cancelled.
    Error endedEarly(URLErrorCode code) const override;

private:
    NetworkServiceble(URLRequest request, std::shared_ptr<NetworkSession> session, LogError logError);

    Result<Data, Error> validate(std::optional<Data> data, std::shared_ptr<const URLResponse> response,
                                 std::optional<Error> error) const;

    URLRequest urlRequest_;
    std::shared_ptr<NetworkSession> session_;
    LogError logError_;
};

}  // namespace VanticRestKit
