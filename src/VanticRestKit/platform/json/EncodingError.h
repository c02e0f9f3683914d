#pragma once

/// \file
/// `EncodingError`: why a value did not become a JSON document.

#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <string>
#include <utility>

namespace VanticRestKit {

/// A value that JSON cannot hold: a number that is not finite, a text that is not UTF-8.
class VRK_EXPORT EncodingError {
public:
    /// Names the key at which encoding failed.
    EncodingError(std::string key, std::string debugDescription)
        : key_(std::move(key)), debugDescription_(std::move(debugDescription)) {}

    /// The key of the value.
    const std::string& key() const noexcept { return key_; }
    /// What is wrong with it, for developers.
    const std::string& debugDescription() const noexcept { return debugDescription_; }
    /// The platform's sentence for people.
    std::string localizedDescription() const;

    /// What identifies errors of this type; see `Error`.
    static const ErrorTag& errorTag();
    /// The domain of the error.
    std::string errorDomain() const { return "NSCocoaErrorDomain"; }
    /// The code of the error within its domain.
    std::int64_t errorCode() const { return 4866; }
    /// The description that `Error` gives.
    std::string generalDescription() const { return localizedDescription(); }

    /// Whether both are errors of this type.
    friend bool operator==(const EncodingError&, const EncodingError&) noexcept { return true; }

private:
    std::string key_;
    std::string debugDescription_;
};

}  // namespace VanticRestKit
