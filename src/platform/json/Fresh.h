#pragma once

/// \file
/// How decoding makes the value that it fills.

#include <type_traits>

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

}  // namespace VanticRestKit::mapping
