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
    EncodingError(std::string key, std::string debugDescription)
        : key_(std::move(key)), debugDescription_(std::move(debugDescription)) {}

    /// The key of the value.
    const std::string& key() const noexcept { return key_; }
    /// What is wrong with it, for developers.
    const std::string& debugDescription() const noexcept { return debugDescription_; }
    /// The platform's sentence for people.
    std::string localizedDescription() const;

    static const ErrorTag& errorTag();
    std::string errorDomain() const { return "NSCocoaErrorDomain"; }
    std::int64_t errorCode() const { return 4866; }
    std::string generalDescription() const { return localizedDescription(); }

    friend bool operator==(const EncodingError&, const EncodingError&) noexcept { return true; }

private:
    std::string key_;
    std::string debugDescription_;
};

}  // namespace VanticRestKit
