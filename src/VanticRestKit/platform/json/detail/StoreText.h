#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit::json {

/// The longest text that a std::string holds without allocating, in the standard library at hand or shorter.
inline constexpr std::size_t shortText = 15;

/// Makes a text of at most `shortText` bytes the content of a field. So many bytes can be read from `text`
/// on.
///
/// Most texts of a catalogue are short, and a library call for each would be a third of a decode. So a string
/// of fifteen bytes is made, which needs none, and then cut to its length.
inline void storeShortText(std::optional<std::string>& field, const char* text, std::size_t size) {
    field.emplace(text, shortText).erase(size);
}

/// The same for a longer text. `mediumText` bytes can be read from `text` on: to copy a number of them that
/// is known beforehand needs no call, and the room that it costs is mostly there, since memory comes in steps
/// of 16 bytes.
inline void storeLongText(std::optional<std::string>& field, const char* text, std::size_t size) {
    constexpr std::size_t mediumText = 31;
    if (size <= mediumText) {
        field.emplace(text, mediumText).erase(size);
    } else {
        field.emplace(text, size);
    }
}

/// Makes `text` the content of a field. `mayReadOn`: the bytes behind `text` are readable.
inline void storeText(void* place, bool isOptional, std::string_view text, bool mayReadOn) {
    if (!isOptional) {
        static_cast<std::string*>(place)->assign(text);
        return;
    }
    auto& field = *static_cast<std::optional<std::string>*>(place);
    if (mayReadOn && text.size() <= shortText) {
        storeShortText(field, text.data(), text.size());
    } else {
        field.emplace(text);
    }
}

}  // namespace VanticRestKit::json
