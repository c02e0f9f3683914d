#pragma once

/// \file
/// How decoding makes the value that it fills.

#include <optional>
#include <type_traits>
#include <vector>

namespace VanticRestKit::mapping {

/// What only decoding has. A type that comes from decoding alone takes one in its one constructor, so that nobody
/// else can make an empty value of it.
class Fresh {
    constexpr Fresh() = default;

    template <class T>
    friend constexpr T fresh();
};

/// A value with the defaults of its type.
template <class T>
constexpr T fresh() {
    if constexpr (std::is_constructible_v<T, Fresh>) {
        return T(Fresh());
    } else {
        return T{};
    }
}

/// Whether a type is made from other values alone: it has a plan to be looked at by, and is never decoded.
template <class T>
inline constexpr bool isOnlyShown = false;
template <class T>
inline constexpr bool isOnlyShown<std::optional<T>> = isOnlyShown<T>;
template <class T>
inline constexpr bool isOnlyShown<std::vector<T>> = isOnlyShown<T>;

}  // namespace VanticRestKit::mapping
