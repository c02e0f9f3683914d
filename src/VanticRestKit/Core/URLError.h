#pragma once

/// \file
/// `URLError`: declared for hosts; the library raises it nowhere.

#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/Visibility.h>

#include <cstddef>
#include <cstdint>
#include <string>

namespace VanticRestKit {

/// A request that cannot be built. The library itself reports that by an absent result, never by this error.
class VRK_EXPORT URLError {
public:
    enum class Kind { buildUrlRequestError };

    static URLError buildUrlRequestError() noexcept { return URLError(Kind::buildUrlRequestError); }

    Kind kind() const noexcept { return kind_; }

    static const ErrorTag& errorTag();
    static std::string errorDomain();
    std::int64_t errorCode() const noexcept { return static_cast<std::int64_t>(kind_); }

    friend bool operator==(const URLError&, const URLError&) = default;

private:
    explicit URLError(Kind kind) noexcept : kind_(kind) {}

    Kind kind_;
};

}  // namespace VanticRestKit

template <>
struct std::hash<VanticRestKit::URLError> {
    std::size_t operator()(const VanticRestKit::URLError& error) const noexcept {
        return std::hash<std::int64_t>()(error.errorCode());
    }
};
