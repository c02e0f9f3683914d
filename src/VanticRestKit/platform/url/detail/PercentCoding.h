#pragma once

/// \file
/// Which characters are allowed in each part of a URL, and percent-encoding of the others.

#include <cstdint>
#include <string>
#include <string_view>

namespace VanticRestKit::detail {

/// A kind of URL part, distinguished by the characters that are allowed in it.
enum class URLCharacters : std::uint8_t {
    user = 1,
    password = 2,
    host = 4,
    path = 8,
    /// A query or a fragment.
    query = 16,
    /// The name or the value of one item of a query.
    queryItem = 32,
};

/// Whether `byte` is allowed unencoded in the part. False for "%", which is only allowed in an escape.
bool isAllowedIn(URLCharacters part, char byte) noexcept;

/// Whether `text` consists of characters allowed in the part and complete escapes such as "%2F".
bool isEncoded(std::string_view text, URLCharacters part) noexcept;

/// Appends `text` to `out`, with each byte that is not allowed in the part, including "%", as an escape.
void appendEncoded(std::string& out, std::string_view text, URLCharacters part);

/// Whether an escape such as "%2F" begins at `text[at]`.
bool isEscape(std::string_view text, std::size_t at) noexcept;

/// `text` with its escapes decoded; a "%" that begins no escape stays. Escapes of the bytes in `kept` stay too.
std::string decodedBytes(std::string_view text, std::string_view kept = {});

/// The same, but returns `text` unchanged if the decoded bytes are not UTF-8.
std::string decodedText(std::string_view text, std::string_view kept = {});

}  // namespace VanticRestKit::detail
