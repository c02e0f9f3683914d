#pragma once

/// \file
/// `NetworkError`: why a request failed; the host's hook for it, and conversion to `NSError`.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/dispatch/SharedFunction.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/http/URLRequest.h>
#include <VanticRestKit/platform/http/URLResponse.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace VanticRestKit {

/// Why a request failed; also `NetworkServiceble::NetworkError`.
///
/// Its own `localizedDescription` describes what happened. That of an `Error` which holds it is composed of domain and
/// code instead, unless the user information contains a description. Use `error.as<NetworkError>()` to get the former.
/// An immutable value; `==` compares only the case.
class VRK_EXPORT NetworkError {
public:
    /// The cases.
    enum class Kind { internalSDKError, httpError, notAHTTPResponse, dataNotFoundInResponse, requestFailed };

    /// An internal failure of the library, described by `message`.
    static NetworkError internalSDKError(std::string message);
    /// The server answered with a status of 400 or above. `data` is the body of that answer. With a null `response`,
    /// which the library never passes, `errorCode()` is 0.
    static NetworkError httpError(URLRequest request, std::shared_ptr<const HTTPURLResponse> response,
                                  std::optional<Data> data);
    /// The answer is not an HTTP answer; `response` may be null.
    static NetworkError notAHTTPResponse(URLRequest request, std::shared_ptr<const URLResponse> response,
                                         std::string message);
    /// An answer without a body, and no error.
    static NetworkError dataNotFoundInResponse(URLRequest request,
                                               std::shared_ptr<const HTTPURLResponse> response,
                                               std::string message);
    /// The transport failed with `error`; `response` may be null.
    static NetworkError requestFailed(URLRequest request, std::shared_ptr<const URLResponse> response,
                                      Error error);

    /// What kind of error it is.
    Kind kind() const noexcept { return kind_; }

    /// The request; `internalSDKError` has none.
    const std::optional<URLRequest>& request() const noexcept { return request_; }
    /// The response of `httpError` and `dataNotFoundInResponse`; null for other cases, even if they hold one.
    std::shared_ptr<const HTTPURLResponse> response() const;

    /// The response that this case holds, whichever case it is; may be null.
    const std::shared_ptr<const URLResponse>& heldResponse() const noexcept { return response_; }
    /// The body of `httpError`; empty for other cases.
    const std::optional<Data>& data() const noexcept { return data_; }
    /// The message of `internalSDKError`, `notAHTTPResponse` and `dataNotFoundInResponse`; an empty string for other
    /// cases.
    const std::string& message() const noexcept { return message_; }
    /// The error of `requestFailed`; empty for other cases.
    const std::optional<Error>& underlyingError() const noexcept { return underlyingError_; }

    /// The `NSError` inside `requestFailed`; null for other cases, and if the host's own transport reported another
    /// type of error. Valid as long as this error.
    const NSError* transportError() const noexcept;

    /// The host, path and query of the request's URL, as given by `URL`; empty if there is no request or URL.
    std::optional<std::string> requestHost() const;
    /// The path of the request; empty if there is none.
    std::optional<std::string> requestPath() const;
    /// The query of the request; empty if there is none.
    std::optional<std::string> requestQuery() const;

    /// A human-readable description of what happened.
    std::string localizedDescription() const;
    /// One line for a log: "HttpCode: 404" or "Error: -1001, /v2/time : (" and the description.
    std::string errorMessage() const;

    /// What identifies errors of this type; see `Error`.
    static const ErrorTag& errorTag();
    /// "dev.vantic.VanticRestKit.networkService"
    static std::string errorDomain();
    /// The HTTP status (0 without a response), or the code of the underlying error, or 1, 3 or 4 for the other cases.
    std::int64_t errorCode() const;
    /// "error_code", "domain", "url", "status_code", "url_host", "url_path", "url_query" and "http_method", all
    /// non-empty strings, each present only if known; for `requestFailed` also the user information of the underlying
    /// error under other keys.
    Dictionary errorUserInfo() const;

    /// Whether both are of the same kind.
    friend bool operator==(const NetworkError& a, const NetworkError& b) noexcept {
        return a.kind_ == b.kind_;
    }

private:
    explicit NetworkError(Kind kind) noexcept : kind_(kind) {}

    std::optional<URL> url() const;

    Kind kind_;
    std::optional<URLRequest> request_;
    std::shared_ptr<const URLResponse> response_;
    std::optional<Data> data_;
    std::string message_;
    std::optional<Error> underlyingError_;
};

/// Receives the `NetworkError` of a failed request, on the session's delegate queue. It must be safe to call from
/// several threads at once, since requests of one context may run on several sessions. May be empty.
using LogError = SharedFunction<void(const Error&)>;

/// `error` as domain, code and user information.
VRK_EXPORT NSError underlyingNSError(const Error& error);

/// The user information of `underlyingNSError(error)`.
VRK_EXPORT Dictionary underlyingErrorUserinfo(const Error& error);

/// The argument of the conversion.
struct NSErrorArguments {
    /// The error to convert.
    Required<NetworkError> networkServiceError;
};

/// The `NSError` with domain, code and user information of a `NetworkError`:
/// `makeNSError({.networkServiceError = error})`.
VRK_EXPORT NSError makeNSError(const NSErrorArguments& arguments);

}  // namespace VanticRestKit
