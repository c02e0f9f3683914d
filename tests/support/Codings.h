#pragma once

/// \file
/// Encodes content like a server.

#include <string>
#include <string_view>

namespace VanticRestKit::test {

std::string gzipped(std::string_view text);
/// With the zlib header, as the standard defines "deflate".
std::string deflated(std::string_view text);
/// Without the zlib header, as some servers send it.
std::string rawDeflated(std::string_view text);
std::string brotlied(std::string_view text);

/// Text of `size` bytes that compresses like JSON.
std::string sampleText(std::size_t size);

}  // namespace VanticRestKit::test
