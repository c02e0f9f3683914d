#pragma once

/// \file
/// Makes the errors of the domain `DiskCacheErrorDomain`.

#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/http/cache/DiskCacheErrorCode.h>

#include <string>
#include <string_view>

namespace VanticRestKit::detail {

/// The error of `code` for the file or folder `path`. `reason` is the message of the system or SQLite, or empty.
Error makeDiskCacheError(DiskCacheErrorCode code, std::string_view path, std::string_view reason);

}  // namespace VanticRestKit::detail
