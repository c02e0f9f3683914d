#pragma once

/// \file
/// `NSError`: an error that consists of domain, code and user information.

#include <VanticRestKit/platform/error/AnyValue.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <optional>
#include <string>

namespace VanticRestKit {

/// An error that consists of domain, code and user information.
class VRK_EXPORT NSError {
public:
    /// Without user information.
    NSError(std::string domain, std::int64_t code);
    /// With user information, such as a description and an underlying error.
    NSError(std::string domain, std::int64_t code, Dictionary userInfo);

    /// The parts and the description of any error.
    explicit NSError(const Error& error);

    /// The domain of the code.
    const std::string& domain() const noexcept { return domain_; }
    /// The code within the domain.
    std::int64_t code() const noexcept { return code_; }
    /// Additional values of the error.
    const Dictionary& userInfo() const noexcept { return userInfo_; }
    /// The description of the error that this one was made from, or otherwise the one in the user information, or
    /// otherwise the composed sentence.
    std::string localizedDescription() const;
    /// The error in the user information under `NSUnderlyingErrorKey`; empty if there is none.
    std::optional<Error> underlyingError() const;

    /// What identifies errors of this type; see `Error`.
    static const ErrorTag& errorTag();
    /// `domain`.
    std::string errorDomain() const;
    /// `code`.
    std::int64_t errorCode() const { return code_; }
    /// `userInfo`.
    Dictionary errorUserInfo() const;
    /// The description that `Error` returns.
    std::string generalDescription() const;

private:
    std::string domain_;
    std::int64_t code_;
    Dictionary userInfo_;
    std::optional<std::string> description_{};
};

}  // namespace VanticRestKit
