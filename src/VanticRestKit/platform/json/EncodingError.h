#pragma once

/// \file
/// `EncodingError`: why a value could not be encoded as JSON.

#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <string>
#include <utility>

namespace VanticRestKit {

/// A value that JSON cannot represent: a number that is not finite, or a string that is not UTF-8.
class VRK_EXPORT EncodingError {
public:
    /// `key` is the key whose value could not be encoded.
    EncodingError(std::string key, std::string debugDescription)
        : key_(std::move(key)), debugDescription_(std::move(debugDescription)) {}

    /// The key of the value.
    const std::string& key() const noexcept { return key_; }
    /// What is wrong with it, for developers.
    const std::string& debugDescription() const noexcept { return debugDescription_; }
    /// The platform's message for end users.
    std::string localizedDescription() const;

    /// Identifies errors of this type; see `Error`.
    static const ErrorTag& errorTag();
    /// The domain of the error.
    std::string errorDomain() const { return "NSCocoaErrorDomain"; }
    /// The code of the error within its domain.
    std::int64_t errorCode() const { return 4866; }
    /// The description that `Error` gives.
    std::string generalDescription() const { return localizedDescription(); }

    /// Always true: all errors of this type compare equal.
    friend bool operator==(const EncodingError&, const EncodingError&) noexcept { return true; }

private:
    std::string key_;
    std::string debugDescription_;
};

}  // namespace VanticRestKit
