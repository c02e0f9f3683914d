#pragma once

/// \file
/// Errors seen as an `NSError`.

#include <VanticRestKit/Core/NetworkError.h>
#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/Visibility.h>

namespace VanticRestKit {

/// `error` by its parts: domain, code and user information.
VRK_EXPORT NSError underlyingNSError(const Error& error);

/// The user information of `underlyingNSError(error)`.
VRK_EXPORT Dictionary underlyingErrorUserinfo(const Error& error);

struct NSErrorArguments {
    Required<NetworkError> networkServiceError;
};

/// The `NSError` with domain, code and user information of a `NetworkError`:
/// `makeNSError({.networkServiceError = error})`.
VRK_EXPORT NSError makeNSError(const NSErrorArguments& arguments);

}  // namespace VanticRestKit
