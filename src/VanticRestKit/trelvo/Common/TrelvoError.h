#pragma once

/// \file
/// `TrelvoError`: the error of an operation on user data.

#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/error/ErrorCategory.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace VanticRestKit {

class NetworkError;
class NSError;

/// The error of an operation on user data. An immutable value; `==` compares only the kind.
class VRK_EXPORT TrelvoError {
public:
    /// The kinds, in the order of their codes.
    enum class Kind {
        noAuthToken,
        datasetNamespaceMismatch,
        general,
        unknown,
        datasetDoesNotExist,
        noUid,
        accountReconsentRequired,
        unableToRetrieveHistoryData,
        unableToRetrieveSavedData,
    };

    /// There is no token; the last attempt to get one failed with `authError`.
    static TrelvoError noAuthToken(Error authError);
    /// The response contains a dataset of another namespace than requested.
    static TrelvoError datasetNamespaceMismatch(std::optional<std::string> expected,
                                                std::optional<std::string> actual);
    /// The request failed with `error`, a `LoaderError`.
    static TrelvoError general(Error error);
    /// Another error, optionally with a message.
    static TrelvoError unknown(std::optional<std::string> message);
    /// The service responded with 404 to a request for a dataset.
    static TrelvoError datasetDoesNotExist();
    /// No user is signed in.
    static TrelvoError noUid();
    /// The service refused to issue a token; the user may have to consent again.
    static TrelvoError accountReconsentRequired();
    /// The response has no list of history records, or a record cannot be decoded.
    static TrelvoError unableToRetrieveHistoryData();
    /// The response has no list of saved records, or a record cannot be decoded.
    static TrelvoError unableToRetrieveSavedData();

    /// The kind of error.
    Kind kind() const noexcept { return kind_; }
    /// The error inside `noAuthToken` or `general`; empty for the other kinds.
    const std::optional<Error>& underlyingError() const noexcept { return error_; }
    /// The message of `unknown`; may be empty. Empty for the other kinds.
    const std::optional<std::string>& message() const noexcept { return message_; }
    /// The expected namespace of `datasetNamespaceMismatch`; may be empty. Empty for the other kinds.
    const std::optional<std::string>& expected() const noexcept { return expected_; }
    /// The actual namespace of `datasetNamespaceMismatch`; empty if there was none, and for the other kinds.
    const std::optional<std::string>& actual() const noexcept { return actual_; }

    /// The `NetworkError` inside this error, at any depth; null if there is none. Valid as long as this error exists.
    const NetworkError* networkError() const noexcept;
    /// The error of the transport, as in `LoaderError::transportError()`; null if there is none.
    const NSError* transportError() const noexcept;

    /// A sentence that describes the error.
    std::string errorDescription() const;
    /// A sentence that describes the error.
    std::string localizedDescription() const { return errorDescription(); }

    /// Identifies errors of this type; see `Error`.
    static const ErrorTag& errorTag();
    /// The domain of the error.
    static std::string errorDomain() { return "VanticRestKit.TrelvoError"; }
    /// The code of the error within its domain.
    std::int64_t errorCode() const noexcept { return static_cast<std::int64_t>(kind_); }
    /// The description that `Error` returns.
    std::string generalDescription() const { return errorDescription(); }
    /// Empty for `noAuthToken` and `general`, whose category is that of the wrapped error.
    std::optional<ErrorCategory> errorCategory() const noexcept;

    /// Whether both have the same kind.
    friend bool operator==(const TrelvoError& a, const TrelvoError& b) noexcept { return a.kind_ == b.kind_; }

private:
    explicit TrelvoError(Kind kind) : kind_(kind) {}

    Kind kind_;
    std::optional<Error> error_;
    std::optional<std::string> message_;
    std::optional<std::string> expected_;
    std::optional<std::string> actual_;
};

}  // namespace VanticRestKit
