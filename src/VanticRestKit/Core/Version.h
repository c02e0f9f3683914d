#pragma once

/// \file
/// The version of the library that the host runs with.

#include <VanticRestKit/Visibility.h>

#include <string_view>

namespace VanticRestKit {

/// The version of the loaded library, "MAJOR.MINOR.PATCH". It can be newer than the headers that the host was compiled
/// with: the binary interface stays compatible within a major version. Any thread.
VRK_EXPORT std::string_view libraryVersion() noexcept;

}  // namespace VanticRestKit
