#pragma once

/// \file
/// Content codings, the way that a server applies them.

#include <string>
#include <string_view>

namespace VanticRestKit::test {

std::string gzipped(std::string_view text);
/// With the zlib header, as "deflate" means it.
std::string deflated(std::string_view text);
/// Without, as some servers send it.
std::string rawDeflated(std::string_view text);
std::string brotlied(std::string_view text);

/// Text that compresses like JSON does, of `size` bytes.
std::string sampleText(std::size_t size);

}  // namespace VanticRestKit::test
