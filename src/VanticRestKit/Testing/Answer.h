#pragma once

/// \file
/// `Answer`: what a scripted service replies to one request.

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

/// Something with a document, such as the builders of this kit: `std::string document() const` gives its JSON.
template <class T>
concept HasDocument = requires(const T& value) {
    { value.document() } -> std::convertible_to<std::string>;
};

/// A status with headers and body, or an error in place of them; and when it comes. An immutable value: the members
/// that change something return a changed copy.
///
/// ```cpp
/// service.on("/v2/time").answer(Answer("{}").withStatus(503).withHeader("Retry-After", "5"));
/// ```
class Answer {
public:
    /// A time in seconds.
    using Seconds = std::chrono::duration<double>;

    /// 200 with this JSON. The text is sent as it is, so it need not be JSON.
    Answer(std::string json);
    /// 200 with this body.
    Answer(const char* json) : Answer(std::string(json)) {}
    /// 200 with the document of a builder.
    template <HasDocument T>
    Answer(const T& value) : Answer(std::string(value.document())) {}

    /// 200 with the content of a file. An error of the domain `errorDomain` if it cannot be read.
    static Answer file(const std::string& path);
    /// A status, with a body without bytes.
    static Answer status(std::int64_t status);
    /// What the transport reports for `code`, with the same description and the URL of the request.
    static Answer error(URLErrorCode code);
    /// Any error, such as an `NSError`, in place of the transport's.
    static Answer error(Error error);
    /// What a device without a network sees: the host is not found.
    static Answer offline() { return error(URLErrorCode::cannotFindHost); }
    /// No answer: the request timed out.
    static Answer timedOut() { return error(URLErrorCode::timedOut); }

    /// The same with another status.
    Answer withStatus(std::int64_t status) const;
    /// Replaces a header of the same spelling. A JSON answer has "Content-Type" from the start.
    Answer withHeader(std::string name, std::string value) const;
    /// The answer comes `delay` after the request, by the clock of the library; see `ManualClock`.
    Answer after(Seconds delay) const;
    /// The answer does not come before the test calls `ScriptedService::answerNow`.
    Answer held() const;

    /// Empty for an error.
    const std::optional<Data>& body() const noexcept { return body_; }
    /// The status.
    std::int64_t status() const noexcept { return status_; }
    /// The header fields.
    const HTTPURLResponse::HeaderFields& headers() const noexcept { return headers_; }
    /// What fails the request: the code of the transport, or an error; nothing if the request is answered.
    const std::variant<std::monostate, URLErrorCode, Error>& failure() const noexcept { return failure_; }
    /// How long the answer is delayed.
    Seconds delay() const noexcept { return delay_; }
    /// Whether the answer waits for the test to release it.
    bool isHeld() const noexcept { return isHeld_; }

    /// The domain of the errors that this kit makes itself.
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
