#pragma once

/// \file
/// How decoding makes the value that it fills.

#include <optional>
#include <type_traits>
#include <vector>

namespace VanticRestKit::mapping {

class Fresh;

namespace detail {

/// A value with the defaults of its type. For the library alone: decoding starts from one.
template <class T>
constexpr T fresh();

}  // namespace detail

/// The key to the constructor of a type that only decoding makes: no one else has one, so no one else can make an
/// empty value of that type.
class Fresh {
    constexpr Fresh() = default;

    template <class T>
    friend constexpr T detail::fresh();
};

/// Whether only decoding makes values of the type. A type that has defaults starts with those, also if it could be
/// made from a `Fresh` through a type that it holds, as a `std::optional` could.
template <class T>
inline constexpr bool isMadeByDecoding =
    std::is_constructible_v<T, Fresh> && !std::is_default_constructible_v<T>;

namespace detail {

template <class T>
constexpr T fresh() {
    if constexpr (isMadeByDecoding<T>) {
        return T(Fresh());
    } else {
        return T{};
    }
}

}  // namespace detail

/// Whether a type is made from other values alone: it has a plan to be looked at by, and is never decoded.
template <class T>
inline constexpr bool isOnlyShown = false;
template <class T>
inline constexpr bool isOnlyShown<std::optional<T>> = isOnlyShown<T>;
template <class T>
inline constexpr bool isOnlyShown<std::vector<T>> = isOnlyShown<T>;

}  // namespace VanticRestKit::mapping
