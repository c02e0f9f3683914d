#pragma once

/// \file
/// Checks the parts of header lines, and compares header names.

#include <algorithm>
#include <string>
#include <string_view>

namespace VanticRestKit::detail {

constexpr char asciiLower(char c) noexcept {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

inline std::string asciiLowered(std::string_view text) {
    std::string lowered(text);
    std::transform(lowered.begin(), lowered.end(), lowered.begin(), asciiLower);
    return lowered;
}

/// Whether both are equal, ignoring the case of ASCII letters.
constexpr bool sameHeaderName(std::string_view a, std::string_view b) noexcept {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return asciiLower(x) == asciiLower(y); });
}

/// Orders names case-insensitively.
struct HeaderNameLess {
    constexpr bool operator()(std::string_view a, std::string_view b) const noexcept {
        return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                            [](char x, char y) { return asciiLower(x) < asciiLower(y); });
    }
};

// These use algorithms with a predicate because `find_first_of` would call the C library for each character.

/// Whether `text` is an HTTP token, as methods and header names must be.
constexpr bool isToken(std::string_view text) noexcept {
    constexpr std::string_view signs = "!#$%&'*+-.^_`|~";
    const auto isAllowed = [signs](char c) {
        const char lower = asciiLower(c);
        return (lower >= 'a' && lower <= 'z') || (c >= '0' && c <= '9') ||
               signs.find(c) != std::string_view::npos;
    };
    return !text.empty() && std::all_of(text.begin(), text.end(), isAllowed);
}

/// Whether `text` can be the value of a header: it must not contain a line end or a zero byte.
constexpr bool isHeaderValue(std::string_view text) noexcept {
    return std::none_of(text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n' || c == '\0'; });
}

/// `text` without leading and trailing spaces and tabs.
constexpr std::string_view trimmed(std::string_view text) noexcept {
    const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

/// The entry of `fields` with this name, compared case-insensitively, or its end.
template <class Fields>
auto findHeader(Fields& fields, std::string_view name) {
    return std::find_if(fields.begin(), fields.end(),
                        [name](const auto& field) { return sameHeaderName(field.first, name); });
}

}  // namespace VanticRestKit::detail
