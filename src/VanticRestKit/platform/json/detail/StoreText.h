#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit::json {

/// A length up to which std::string does not allocate; the standard library's own limit is at least this.
inline constexpr std::size_t shortText = 15;

/// Stores a string of at most `shortText` bytes in a field. `shortText` bytes must be readable at `text`.
///
/// Most strings of a catalogue are short, and a library call for each would take a third of the decode time. A string
/// of constant length needs no call, so one of fifteen bytes is made and then truncated.
inline void storeShortText(std::optional<std::string>& field, const char* text, std::size_t size) {
    field.emplace(text, shortText).erase(size);
}

/// The same for a longer string. `mediumText` bytes must be readable at `text`: copying a constant number of bytes
/// needs no call, and the extra space is mostly free, since memory is allocated in steps of 16 bytes.
inline void storeLongText(std::optional<std::string>& field, const char* text, std::size_t size) {
    constexpr std::size_t mediumText = 31;
    if (size <= mediumText) {
        field.emplace(text, mediumText).erase(size);
    } else {
        field.emplace(text, size);
    }
}

/// Stores `text` in a field. `isPlain`: `text` is a plain token of the document, so the bytes after it are readable.
inline void storeText(void* place, bool isOptional, std::string_view text, bool isPlain) {
    if (!isOptional) {
        static_cast<std::string*>(place)->assign(text);
        return;
    }
    auto& field = *static_cast<std::optional<std::string>*>(place);
    if (isPlain && text.size() <= shortText) {
        storeShortText(field, text.data(), text.size());
    } else {
        field.emplace(text);
    }
}

}  // namespace VanticRestKit::json
