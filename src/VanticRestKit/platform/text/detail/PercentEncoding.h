#pragma once

/// \file
/// The percent-encoding of form bodies.

#include <string>
#include <string_view>

namespace VanticRestKit::detail {

/// `text`, UTF-8, with every character percent-encoded that is neither alphanumeric nor one of "-._~".
///
/// Alphanumeric are letters, marks and numbers of every script, so "é" and "日" stay as they are, and what is
/// returned may go beyond ASCII. A character that is encoded has each byte of its UTF-8 form written as
/// "%XX", in capitals. Bytes that are not UTF-8 are encoded one by one.
std::string paramsEncoded(std::string_view text);

}  // namespace VanticRestKit::detail
