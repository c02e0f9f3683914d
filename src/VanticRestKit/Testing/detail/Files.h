#pragma once

/// \file
/// Reads and writes whole files.

#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit::Testing::detail {

/// The bytes of a file; empty if it cannot be read.
std::optional<std::string> readFile(const std::string& path);

/// Replaces a file and makes the folders above it. Whether that was possible.
bool writeFile(const std::string& path, std::string_view content);

}  // namespace VanticRestKit::Testing::detail
