#pragma once

/// \file
/// `NetworkServiceble`: runs one request over a session.

#include <VanticRestKit/Core/NetworkError.h>
#include <VanticRestKit/Core/NetworkSession.h>
#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/Core/Serviceable.h>
#include <VanticRestKit/platform/http/URLRequest.h>
#include <VanticRestKit/platform/url/URL.h>
#include <VanticRestKit/Visibility.h>

#include <memory>

namespace VanticRestKit {

/// Runs one request over a session, any number of times, and judges the answers.
///
/// A status below 400 with a body is a success, an empty body included; all else is a `NetworkError`, of
/// which `logError` is told unless it is `notAHTTPResponse` or `internalSDKError`. Nothing is retried.
/// Immutable, so any thread may use it.
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
        /// An empty function means that nobody is told.
        Required<LogError> logError;
    };
    /// The arguments of `make` for an address.
    struct URLArguments {
        /// The address to load by a GET.
        Required<URL> with;
        /// The session to send it on; empty for the shared one.
        std::shared_ptr<NetworkSession> and_{};
        /// Receives failures; may be empty.
        Required<LogError> logError;
    };

    /// `NetworkServiceble::make({.with = request, .logError = context.logError()})`
    static std::shared_ptr<NetworkServiceble> make(RequestArguments arguments);
    /// The same for a plain request of a URL: GET, no headers, 60 seconds.
    static std::shared_ptr<NetworkServiceble> make(URLArguments arguments);

    /// The request that is sent.
    const URLRequest& urlRequest() const noexcept { return urlRequest_; }
    /// The session that it is sent on.
    const std::shared_ptr<NetworkSession>& session() const noexcept { return session_; }
    /// What receives failures; may be empty.
    const LogError& logError() const noexcept { return logError_; }

    /// Runs the request once. Judgement, `logError` and completion run where the session calls back. A fetch
    /// does not keep this object: if it has gone by then, the completion receives `internalSDKError`.
    void fetch(FetchArguments arguments) override;

    /// A publisher of the body, which keeps this object. Each subscription is a transfer of its own.
    ///
    /// A failure of the transport arrives as the transport's own error, and `logError` is not told of it. The
    /// activity counter rises once when this is called, falls at each answer and at each error, so twice
    /// where an answer is judged a failure, and not at all where nobody waits for the outcome.
    AnyPublisher<Data> fetch() override;

    /// The same, with the records that the session makes.
    AnyPublisher<Data> publisher(MetricsReceiver metrics) override;

    /// Runs the request once, cancellable. Judgement and errors are those of `fetch`; `logError` is not told of a
    /// cancelled request.
    [[nodiscard]] Cancellable start(FetchArguments arguments) override;

    /// That of the session.
    DispatchQueue deliveryQueue() const override { return session_->deliveryQueue(); }

    /// `requestFailed` with the transport's error of `code`. `logError` is told of it, unless the request was cancelled.
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
