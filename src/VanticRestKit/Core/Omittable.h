#pragma once

/// \file
/// `Omittable`: an optional labelled argument.

#include <VanticRestKit/Core/Required.h>

#include <concepts>
#include <optional>
#include <type_traits>
#include <utility>

namespace VanticRestKit {

/// A field of a label struct that the caller may omit, in which case it is empty. It accepts what a
/// `Required<std::optional<T>>` accepts, so that `.selectedSeries = 111` compiles and `.selectedSeries = -1` does not;
/// a `std::optional` would accept both.
template <class T>
class Omittable {
public:
    constexpr Omittable() noexcept = default;

    /// A value, or anything from which an optional of it can be constructed.
    template <class U>
    requires(!std::same_as<std::remove_cvref_t<U>, Omittable> && detail::Fills<U, std::optional<T>>::value &&
             !detail::SignedFor<std::remove_cvref_t<U>, T>) constexpr Omittable(U&& value)
        : value_{std::forward<U>(value)} {}

    /// A signed constant for an unsigned number. A negative one does not compile.
    template <detail::SignedFor<T> U>
    consteval Omittable(U literal) : value_{detail::exactly<T>(literal)} {}

    /// The value, or empty.
    constexpr const std::optional<T>& value() const noexcept { return value_; }

private:
    std::optional<T> value_{};
};

}  // namespace VanticRestKit
