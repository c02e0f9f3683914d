#pragma once

/// \file
/// What may stand in a header line, and how header names compare.

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

/// Whether both are the same but for the case of ASCII letters.
constexpr bool sameHeaderName(std::string_view a, std::string_view b) noexcept {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return asciiLower(x) == asciiLower(y); });
}

/// Whether `text` is a token of HTTP: what a method or a header name must be.
constexpr bool isToken(std::string_view text) noexcept {
    constexpr std::string_view allowed =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789!#$%&'*+-.^_`|~";
    return !text.empty() && text.find_first_not_of(allowed) == std::string_view::npos;
}

/// Whether `text` may be the value of a header: it cannot end its line.
constexpr bool isHeaderValue(std::string_view text) noexcept {
    constexpr std::string_view forbidden("\r\n\0", 3);
    return text.find_first_of(forbidden) == std::string_view::npos;
}

/// `text` without blanks and tabs around it.
constexpr std::string_view trimmed(std::string_view text) noexcept {
    constexpr std::string_view blanks = " \t";
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// The entry of `fields` whose name is `name` without case, or its end.
template <class Fields>
auto findHeader(Fields& fields, std::string_view name) {
    return std::find_if(fields.begin(), fields.end(),
                        [name](const auto& field) { return sameHeaderName(field.first, name); });
}

}  // namespace VanticRestKit::detail
