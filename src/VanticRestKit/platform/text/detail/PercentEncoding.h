#pragma once

/// \file
/// Percent-encoding of form bodies.

#include <string>
#include <string_view>

namespace VanticRestKit::detail {

/// `text`, in UTF-8, with all characters percent-encoded except alphanumeric ones and "-._~".
///
/// Letters, marks and numbers of every script are alphanumeric, so "é" and "日" are not encoded and the result may
/// contain non-ASCII characters. Each UTF-8 byte of an encoded character becomes "%XX" with capital letters. Bytes that
/// are not UTF-8 are encoded one by one.
std::string paramsEncoded(std::string_view text);

}  // namespace VanticRestKit::detail
