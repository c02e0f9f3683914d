#pragma once

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

namespace VanticRestKit::json {

/// The longest text that a std::string holds without allocating, in the standard library at hand or shorter.
inline constexpr std::size_t shortText = 15;

/// Makes `text` the content of `place`, which holds a text of up to `shortText` bytes so far.
///
/// Most texts of a catalogue are short, and a library call for each would be a third of a decode. So a short
/// text is written over fifteen bytes that are there, and the string is then cut to its length. The fifteen
/// bytes behind `text.data()` must be readable, as they are in every `Data`.
inline void storeText(std::string& place, std::string_view text, bool mayReadOn) {
    if (text.size() <= shortText && mayReadOn) {
        place = std::string("\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0", shortText);
        std::memcpy(place.data(), text.data(), shortText);
        place.erase(text.size());
    } else {
        place.assign(text);
    }
}

}  // namespace VanticRestKit::json
