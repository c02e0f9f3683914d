#pragma once

/// \file
/// `URLError`: for hosts; the library never raises it.

#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/Visibility.h>

#include <cstddef>
#include <cstdint>
#include <string>

namespace VanticRestKit {

/// A request that cannot be built. The library itself reports that by an empty result, never by this error.
class VRK_EXPORT URLError {
public:
    /// The cases, in the order of their codes.
    enum class Kind { buildUrlRequestError };

    /// No request could be built from its parts.
    static URLError buildUrlRequestError() noexcept { return URLError(Kind::buildUrlRequestError); }

    /// What kind of error it is.
    Kind kind() const noexcept { return kind_; }

    /// What identifies errors of this type; see `Error`.
    static const ErrorTag& errorTag();
    /// The domain of the error.
    static std::string errorDomain();
    /// The code of the error within its domain.
    std::int64_t errorCode() const noexcept { return static_cast<std::int64_t>(kind_); }

    friend bool operator==(const URLError&, const URLError&) = default;

private:
    explicit URLError(Kind kind) noexcept : kind_(kind) {}

    Kind kind_;
};

}  // namespace VanticRestKit

/// The hash of a value.
template <>
struct std::hash<VanticRestKit::URLError> {
    /// The hash.
    std::size_t operator()(const VanticRestKit::URLError& error) const noexcept {
        return std::hash<std::int64_t>()(error.errorCode());
    }
};
