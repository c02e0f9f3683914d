#pragma once

/// \file
/// `lumenoSDKError`: a value could not be built from another value.

#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <string>
#include <utility>

namespace VanticRestKit {

/// A value could not be built from another value; not a decoding error. `==` compares the case.
class VRK_EXPORT lumenoSDKError {
public:
    /// The cases, in the order of their codes.
    enum class Kind { initializationError };

    /// `message` says what was missing.
    static lumenoSDKError initializationError(std::string message);

    /// What kind of error it is.
    Kind kind() const noexcept { return kind_; }
    /// What was missing.
    const std::string& message() const noexcept { return message_; }
    /// What was missing, as a human-readable string.
    const std::string& localizedDescription() const noexcept { return message_; }

    /// What identifies errors of this type; see `Error`.
    static const ErrorTag& errorTag();
    /// The domain of the error.
    static std::string errorDomain();
    /// The code of the error within its domain.
    std::int64_t errorCode() const noexcept { return static_cast<std::int64_t>(kind_); }
    /// The message.
    std::string generalDescription() const { return message_; }

    /// Whether both are of one kind.
    friend bool operator==(const lumenoSDKError& a, const lumenoSDKError& b) noexcept {
        return a.kind_ == b.kind_;
    }

private:
    lumenoSDKError(Kind kind, std::string message) : kind_(kind), message_(std::move(message)) {}

    Kind kind_;
    std::string message_;
};

}  // namespace VanticRestKit
