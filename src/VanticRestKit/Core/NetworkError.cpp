#include <VanticRestKit/Core/NetworkError.h>

#include <VanticRestKit/platform/http/HTTPURLResponse.h>

#include <utility>

namespace VanticRestKit {

NetworkError NetworkError::internalSDKError(std::string message) {
    NetworkError error(Kind::internalSDKError);
    error.message_ = std::move(message);
    return error;
}

NetworkError NetworkError::httpError(URLRequest request, std::shared_ptr<const HTTPURLResponse> response,
                                     std::optional<Data> data) {
    NetworkError error(Kind::httpError);
    error.request_ = std::move(request);
    error.response_ = std::move(response);
    error.data_ = std::move(data);
    return error;
}

NetworkError NetworkError::notAHTTPResponse(URLRequest request, std::shared_ptr<const URLResponse> response,
                                            std::string message) {
    NetworkError error(Kind::notAHTTPResponse);
    error.request_ = std::move(request);
    error.response_ = std::move(response);
    error.message_ = std::move(message);
    return error;
}

NetworkError NetworkError::dataNotFoundInResponse(URLRequest request,
                                                  std::shared_ptr<const HTTPURLResponse> response,
                                                  std::string message) {
    NetworkError error(Kind::dataNotFoundInResponse);
    error.request_ = std::move(request);
    error.response_ = std::move(response);
    error.message_ = std::move(message);
    return error;
}

NetworkError NetworkError::requestFailed(URLRequest request, std::shared_ptr<const URLResponse> response,
                                         Error error) {
    NetworkError failure(Kind::requestFailed);
    failure.request_ = std::move(request);
    failure.response_ = std::move(response);
    failure.underlyingError_ = std::move(error);
    return failure;
}

std::shared_ptr<const HTTPURLResponse> NetworkError::response() const {
    if (kind_ != Kind::httpError && kind_ != Kind::dataNotFoundInResponse) return nullptr;
    if (!response_) return nullptr;
    return {response_, response_->asHTTP()};
}

std::optional<URL> NetworkError::url() const { return request_ ? request_->url() : std::nullopt; }

const NSError* NetworkError::transportError() const noexcept {
    return underlyingError_ ? underlyingError_->as<NSError>() : nullptr;
}

std::optional<std::string> NetworkError::requestHost() const {
    const std::optional<URL> address = url();
    return address ? address->host() : std::nullopt;
}

std::optional<std::string> NetworkError::requestPath() const {
    const std::optional<URL> address = url();
    return address ? std::optional(address->path()) : std::nullopt;
}

std::optional<std::string> NetworkError::requestQuery() const {
    const std::optional<URL> address = url();
    return address ? address->query() : std::nullopt;
}

std::string NetworkError::localizedDescription() const {
    switch (kind_) {
        case Kind::httpError: return "Got response " + std::to_string(errorCode());
        case Kind::dataNotFoundInResponse: return "Data returned is nil and no error returned";
        case Kind::requestFailed: return underlyingError_->localizedDescription();
        case Kind::internalSDKError:
        case Kind::notAHTTPResponse: break;
    }
    return message_;
}

std::string NetworkError::errorMessage() const {
    const std::string code = std::to_string(errorCode());
    if (kind_ == Kind::httpError) return "HttpCode: " + code;
    // The parenthesis is deliberately not closed: existing readers of these lines expect this form.
    const std::optional<std::string> path = requestPath();
    return "Error: " + code + (path ? ", " + *path : "") + " : (" + localizedDescription();
}

const ErrorTag& NetworkError::errorTag() {
    static const ErrorTag tag;
    return tag;
}

std::string NetworkError::errorDomain() { return "dev.vantic.VanticRestKit.networkService"; }

std::int64_t NetworkError::errorCode() const {
    switch (kind_) {
        case Kind::internalSDKError: return 1;
        case Kind::httpError: {
            const std::shared_ptr<const HTTPURLResponse> answer = response();
            return answer ? answer->statusCode() : 0;
        }
        case Kind::notAHTTPResponse: return 3;
        case Kind::dataNotFoundInResponse: return 4;
        case Kind::requestFailed: break;
    }
    return underlyingNSError(*underlyingError_).code();
}

Dictionary NetworkError::errorUserInfo() const {
    const std::optional<URL> address = url();
    const std::string code = std::to_string(errorCode());
    Dictionary userInfo;
    const auto keep = [&userInfo](std::string_view key, const std::optional<std::string>& text) {
        if (text && !text->empty()) userInfo.emplace(key, *text);
    };
    keep("error_code", code);
    keep("domain", errorDomain());
    keep("url", address ? std::optional(address->absoluteString()) : std::nullopt);
    keep("status_code", code);
    keep("url_host", requestHost());
    keep("url_path", requestPath());
    keep("url_query", requestQuery());
    keep("http_method", request_ ? request_->httpMethod() : std::nullopt);
    if (kind_ == Kind::requestFailed) userInfo.merge(underlyingErrorUserinfo(*underlyingError_));
    return userInfo;
}

NSError underlyingNSError(const Error& error) { return NSError(error); }

Dictionary underlyingErrorUserinfo(const Error& error) { return error.userInfo(); }

NSError makeNSError(const NSErrorArguments& arguments) {
    const NetworkError& error = arguments.networkServiceError;
    return {NetworkError::errorDomain(), error.errorCode(), error.errorUserInfo()};
}

}  // namespace VanticRestKit
