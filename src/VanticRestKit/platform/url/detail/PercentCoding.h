#pragma once

/// \file
/// Which characters each part of a URL may hold, and the percent-encoding of the others.

#include <cstdint>
#include <string>
#include <string_view>

namespace VanticRestKit::detail {

/// A part of a URL, as far as its set of characters goes.
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

/// Whether `byte` may stand in such a part as it is. False for "%", which only an escape may hold.
bool mayHold(URLCharacters part, char byte) noexcept;

/// Whether `text` holds nothing but characters of the part and whole escapes such as "%2F".
bool isEncoded(std::string_view text, URLCharacters part) noexcept;

/// Appends `text` to `out`, each byte that the part may not hold as an escape, "%" too.
void appendEncoded(std::string& out, std::string_view text, URLCharacters part);

/// Whether an escape such as "%2F" begins at `text[at]`.
bool isEscape(std::string_view text, std::size_t at) noexcept;

/// `text` with its escapes turned into bytes; a "%" that begins none stays. `kept` names bytes whose escapes
/// stay.
std::string decodedBytes(std::string_view text, std::string_view kept = {});

/// The same, but `text` as it is where the bytes are not UTF-8.
std::string decodedText(std::string_view text, std::string_view kept = {});

}  // namespace VanticRestKit::detail
