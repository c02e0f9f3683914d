#pragma once

/// \file
/// `LoaderError`: why a load failed.

#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace VanticRestKit {

class NetworkError;
class NSError;

/// Why a load failed; also `Loader<T>::LoaderError`. A load produces only the first two cases. An immutable value; `==`
/// compares only the case.
class VRK_EXPORT LoaderError {
public:
    /// The cases, in the order of their codes.
    enum class Kind { serverError, failedToDecode, unknowError, unknownResponse, loaderStateError };

    /// The request failed with `error`: a `NetworkError` if a `NetworkServiceble` ran it.
    static LoaderError serverError(std::optional<Error> error);
    /// The body could not be decoded; `error` is the decoder's error.
    static LoaderError failedToDecode(std::optional<Error> error);
    /// "Unknown error". Never produced by the library itself.
    static LoaderError unknowError();
    /// "Unknown response". Never produced by the library itself.
    static LoaderError unknownResponse();
    /// "Loaded in incorrect state". Never produced by the library itself.
    static LoaderError loaderStateError();

    /// What kind of error it is.
    Kind kind() const noexcept { return kind_; }
    /// The error inside `serverError` or `failedToDecode`; empty for other cases.
    const std::optional<Error>& underlyingError() const noexcept { return underlyingError_; }

    /// A human-readable sentence. For `serverError` it is the `localizedDescription` of the underlying `Error`, which
    /// for a `NetworkError` differs from that of the concrete type.
    std::string localizedDescription() const;

    /// Whether the server answered 404: a `serverError` that holds a `NetworkError` of the case `httpError` with 404.
    bool is404Error() const;

    /// The `NetworkError` that this error holds, directly or inside other errors of the library; null if there is none.
    /// Valid as long as this error. `if (const auto* error = failure.networkError()) log(error->errorMessage());`
    const NetworkError* networkError() const noexcept;

    /// The error of the transport: the `NSError` in a `NetworkError` of the case `requestFailed`, such as domain
    /// "NSURLErrorDomain" with code -1001. Null if there is none. Valid as long as this error.
    const NSError* transportError() const noexcept;

    /// What identifies errors of this type; see `Error`.
    static const ErrorTag& errorTag();
    /// The domain of the error.
    static std::string errorDomain();
    /// The code of the error within its domain.
    std::int64_t errorCode() const noexcept { return static_cast<std::int64_t>(kind_); }
    /// The description that `Error` returns.
    std::string generalDescription() const { return localizedDescription(); }

    /// Whether both are of the same kind.
    friend bool operator==(const LoaderError& a, const LoaderError& b) noexcept { return a.kind_ == b.kind_; }

private:
    LoaderError(Kind kind, std::optional<Error> error) : kind_(kind), underlyingError_(std::move(error)) {}

    Kind kind_;
    std::optional<Error> underlyingError_;
};

}  // namespace VanticRestKit
