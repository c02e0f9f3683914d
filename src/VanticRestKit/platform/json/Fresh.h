#pragma once

/// \file
/// How decoding constructs the value that it fills.

#include <optional>
#include <type_traits>
#include <vector>

namespace VanticRestKit::mapping {

class Fresh;

namespace detail {

/// A value with the defaults of its type, from which decoding starts. For the library only.
template <class T>
constexpr T fresh();

}  // namespace detail

/// A pass-key for the constructor of a type that only decoding may construct: only the library can make a `Fresh`, so
/// no other code can construct an empty value of that type.
class Fresh {
    constexpr Fresh() = default;

    template <class T>
    friend constexpr T detail::fresh();
};

/// Whether only decoding can construct values of the type. A default-constructible type is not one, even if it is
/// constructible from a `Fresh` through a type that it holds, as a `std::optional` may be.
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

/// Whether a type is only computed from other values: its plan is used to print it, never to decode it.
template <class T>
inline constexpr bool isOnlyShown = false;
template <class T>
inline constexpr bool isOnlyShown<std::optional<T>> = isOnlyShown<T>;
template <class T>
inline constexpr bool isOnlyShown<std::vector<T>> = isOnlyShown<T>;

}  // namespace VanticRestKit::mapping
