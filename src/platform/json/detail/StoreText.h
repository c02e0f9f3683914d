#pragma once

#include <cstddef>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit::json {

/// The longest text that a std::string holds without allocating, in the standard library at hand or shorter.
inline constexpr std::size_t shortText = 15;

/// Fifteen bytes to write a short text over.
inline constexpr const char* blankText = "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0";

/// Makes `text` the content of a field, an empty one so far. `mayReadOn`: the bytes behind `text` are readable.
///
/// Most texts of a catalogue are short, and a library call for each would be a third of a decode. So a short
/// text is written over fifteen bytes that are there, and the string is then cut to its length.
inline void storeText(void* place, bool isOptional, std::string_view text, bool mayReadOn) {
    if (!isOptional) {
        static_cast<std::string*>(place)->assign(text);
        return;
    }
    auto& field = *static_cast<std::optional<std::string>*>(place);
    if (mayReadOn && text.size() <= shortText) {
        std::string& made = field.emplace(blankText, shortText);
        std::memcpy(made.data(), text.data(), shortText);
        made.erase(text.size());
    } else {
        field.emplace(text);
    }
}

}  // namespace VanticRestKit::json
