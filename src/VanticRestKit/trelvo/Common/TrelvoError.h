#pragma once

/// \file
/// `TrelvoError`: why an operation on user data failed.

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

/// Why an operation on user data failed. An immutable value; `==` compares the case alone.
class VRK_EXPORT TrelvoError {
public:
    /// The cases, in the order of their codes.
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

    /// There is no token, and the last attempt to get one failed with `authError`.
    static TrelvoError noAuthToken(Error authError);
    /// A dataset came that is of another namespace than was asked for.
    static TrelvoError datasetNamespaceMismatch(std::optional<std::string> expected,
                                                std::optional<std::string> actual);
    /// The request failed with `error`, a `LoaderError`.
    static TrelvoError general(Error error);
    /// Something else, with a message if there is one.
    static TrelvoError unknown(std::optional<std::string> message);
    /// The service answered 404 for a dataset.
    static TrelvoError datasetDoesNotExist();
    /// Nobody is signed in.
    static TrelvoError noUid();
    /// The service refused a token: the user may have to consent anew.
    static TrelvoError accountReconsentRequired();
    /// The answer had no list of history records, or one record that did not decode.
    static TrelvoError unableToRetrieveHistoryData();
    /// The answer had no list of saved records, or one record that did not decode.
    static TrelvoError unableToRetrieveSavedData();

    /// What kind of error it is.
    Kind kind() const noexcept { return kind_; }
    /// What `noAuthToken` and `general` hold; empty for the other cases.
    const std::optional<Error>& underlyingError() const noexcept { return error_; }
    /// What `unknown` says; may be empty. Empty for the other cases.
    const std::optional<std::string>& message() const noexcept { return message_; }
    /// The namespaces of `datasetNamespaceMismatch`; each may be empty. Empty for the other cases.
    const std::optional<std::string>& expected() const noexcept { return expected_; }
    /// The namespace that was found; empty if there was none.
    const std::optional<std::string>& actual() const noexcept { return actual_; }

    /// The `NetworkError` inside, however deep: in the `LoaderError` that `general` holds, or in the error for which
    /// there is no token. Null if there is none. It lives as long as this error.
    const NetworkError* networkError() const noexcept;
    /// What the transport reported, as `LoaderError::transportError()`. Null if there is nothing.
    const NSError* transportError() const noexcept;

    /// A sentence for people.
    std::string errorDescription() const;
    /// What went wrong, in a sentence.
    std::string localizedDescription() const { return errorDescription(); }

    /// What identifies errors of this type; see `Error`.
    static const ErrorTag& errorTag();
    /// The domain of the error.
    static std::string errorDomain() { return "VanticRestKit.TrelvoError"; }
    /// The code of the error within its domain.
    std::int64_t errorCode() const noexcept { return static_cast<std::int64_t>(kind_); }
    /// The description that `Error` gives.
    std::string generalDescription() const { return errorDescription(); }
    /// Empty for `noAuthToken` and `general`, where the error held decides.
    std::optional<ErrorCategory> errorCategory() const noexcept;

    /// Whether both are of one kind.
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
