#pragma once

/// \file
/// Enumerations that are strings in JSON: one table per enumeration, in case order.

#include <concepts>
#include <optional>
#include <span>
#include <string_view>

namespace VanticRestKit {

/// One case of an enumeration: the case, its name and its string in JSON and in paths.
template <class E>
struct RawCase {
    /// The case.
    E value;
    /// Its name in C++, without a trailing underscore.
    std::string_view name;
    /// Its string in JSON and in paths.
    std::string_view raw;
};

/// Specialised for each enumeration that has raw texts: `static constexpr RawCase<E> cases[] = {...}`,
/// in case order.
template <class E>
struct RawTexts;

/// An enumeration with raw texts.
template <class E>
concept RawEnumeration = requires {
    {std::span<const RawCase<E>>(RawTexts<E>::cases)};
};

/// The case whose raw text is exactly `raw`; empty if there is none.
template <RawEnumeration E>
constexpr std::optional<E> fromRawValue(std::string_view raw) noexcept {
    for (const RawCase<E>& row : RawTexts<E>::cases) {
        if (row.raw == raw) return row.value;
    }
    return std::nullopt;
}

/// The raw text of a case.
template <RawEnumeration E>
constexpr std::string_view rawValue(E value) noexcept {
    for (const RawCase<E>& row : RawTexts<E>::cases) {
        if (row.value == value) return row.raw;
    }
    return {};
}

/// The name of a case.
template <RawEnumeration E>
constexpr std::string_view caseName(E value) noexcept {
    for (const RawCase<E>& row : RawTexts<E>::cases) {
        if (row.value == value) return row.name;
    }
    return {};
}

}  // namespace VanticRestKit
