#pragma once

/// \file
/// Reads and writes whole files.

#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit::Testing::detail {

/// The bytes of a file; empty if it cannot be read.
std::optional<std::string> readFile(const std::string& path);

/// Writes or replaces a file, and creates its folders. Returns whether this succeeded.
bool writeFile(const std::string& path, std::string_view content);

}  // namespace VanticRestKit::Testing::detail
