#pragma once

/// \file
/// `lumenoSDKError`: a value could not be built from another value.

#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <string>
#include <utility>

namespace VanticRestKit {

/// A value could not be built from another value; not an error of decoding. `==` compares the case.
class VRK_EXPORT lumenoSDKError {
public:
    enum class Kind { initializationError };

    /// `message` says what was missing.
    static lumenoSDKError initializationError(std::string message);

    Kind kind() const noexcept { return kind_; }
    /// What was missing.
    const std::string& message() const noexcept { return message_; }
    /// What was missing, as the text for people.
    const std::string& localizedDescription() const noexcept { return message_; }

    static const ErrorTag& errorTag();
    static std::string errorDomain();
    std::int64_t errorCode() const noexcept { return static_cast<std::int64_t>(kind_); }
    std::string generalDescription() const { return message_; }

    friend bool operator==(const lumenoSDKError& a, const lumenoSDKError& b) noexcept {
        return a.kind_ == b.kind_;
    }

private:
    lumenoSDKError(Kind kind, std::string message) : kind_(kind), message_(std::move(message)) {}

    Kind kind_;
    std::string message_;
};

}  // namespace VanticRestKit
