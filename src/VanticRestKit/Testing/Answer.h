#pragma once

/// \file
/// `Answer`: the answer of a scripted service to one request.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/http/HTTPURLResponse.h>
#include <VanticRestKit/platform/http/URLErrorCode.h>

#include <chrono>
#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace VanticRestKit::Testing {

/// A type with a JSON document, such as the builders of this kit: `std::string document() const` returns the JSON.
template <class T>
concept HasDocument = requires(const T& value) {
    { value.document() } -> std::convertible_to<std::string>;
};

/// A status with headers and a body, or an error instead, and when it is delivered. An immutable value: member
/// functions such as `withStatus` return a modified copy.
///
/// ```cpp
/// service.on("/v2/time").answer(Answer("{}").withStatus(503).withHeader("Retry-After", "5"));
/// ```
class Answer {
public:
    /// A time in seconds.
    using Seconds = std::chrono::duration<double>;

    /// 200 with this body, which is sent unchanged and need not be JSON.
    Answer(std::string json);
    /// 200 with this body.
    Answer(const char* json) : Answer(std::string(json)) {}
    /// 200 with the document of a builder.
    template <HasDocument T>
    Answer(const T& value) : Answer(std::string(value.document())) {}

    /// 200 with the content of a file, or an error of the domain `errorDomain` if the file cannot be read.
    static Answer file(const std::string& path);
    /// A status with an empty body.
    static Answer status(std::int64_t status);
    /// The error that the transport reports for `code`, with its description and the URL of the request.
    static Answer error(URLErrorCode code);
    /// Any error, such as an `NSError`.
    static Answer error(Error error);
    /// The error on a device without a network: the host is not found.
    static Answer offline() { return error(URLErrorCode::cannotFindHost); }
    /// The error of a request that timed out.
    static Answer timedOut() { return error(URLErrorCode::timedOut); }

    /// A copy with another status.
    Answer withStatus(std::int64_t status) const;
    /// A copy with a header added, or replaced if one with this name exists, ignoring case. JSON answers already have a
    /// "Content-Type".
    Answer withHeader(std::string name, std::string value) const;
    /// A copy that is delivered `delay` after the request, measured by the clock of the library; see `ManualClock`.
    Answer after(Seconds delay) const;
    /// A copy that is not delivered until the test calls `ScriptedService::answerNow`.
    Answer held() const;

    /// The body; empty for an error.
    const std::optional<Data>& body() const noexcept { return body_; }
    /// The status.
    std::int64_t status() const noexcept { return status_; }
    /// The header fields.
    const HTTPURLResponse::HeaderFields& headers() const noexcept { return headers_; }
    /// The error: the code of a transport error, or any other error. Holds `std::monostate` if there is none.
    const std::variant<std::monostate, URLErrorCode, Error>& failure() const noexcept { return failure_; }
    /// The delay of the answer.
    Seconds delay() const noexcept { return delay_; }
    /// Whether the answer waits for the test to release it.
    bool isHeld() const noexcept { return isHeld_; }

    /// The domain of the errors that this kit creates.
    static constexpr const char* errorDomain = "VanticRestKit.Testing";

private:
    Answer() = default;

    std::optional<Data> body_{};
    std::int64_t status_ = 200;
    HTTPURLResponse::HeaderFields headers_{};
    std::variant<std::monostate, URLErrorCode, Error> failure_{};
    Seconds delay_{0};
    bool isHeld_ = false;
};

}  // namespace VanticRestKit::Testing
