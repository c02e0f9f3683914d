#pragma once

/// \file
/// `Required`: a labelled argument that has no default.

#include <concepts>
#include <initializer_list>
#include <map>
#include <optional>
#include <type_traits>
#include <utility>
#include <vector>

namespace VanticRestKit {

namespace detail {

struct NoElement {};

/// The braced elements of a list or dictionary. Listed type by type, which compiles much faster than checking
/// constructibility.
template <class T>
struct ListElement {
    using type = NoElement;
};
template <class T>
struct ListElement<std::vector<T>> {
    using type = T;
};
template <class T>
concept MapLike = requires {
    typename T::mapped_type;
};
template <MapLike T>
struct ListElement<T> {
    using type = typename T::value_type;
};

template <class T>
inline constexpr bool isListLike = !std::is_same_v<typename ListElement<T>::type, NoElement>;

template <class T>
inline constexpr bool isOptionalLike = false;
template <class T>
inline constexpr bool isOptionalLike<std::optional<T>> = true;

template <class U, class T>
concept FillsByBraces = std::convertible_to<U, T> && requires(U&& value) {
    T{std::forward<U>(value)};
};

// A `std::optional` converts its argument itself and would accept a number that does not fit. Integers are accepted for
// floating-point numbers, as in `timeout = 5`.
template <class U, class T>
concept FillsInside = std::same_as<U, T> || FillsByBraces<U, T> ||(std::floating_point<T>&& std::integral<U>);

template <class U, class T>
struct Fills : std::bool_constant<FillsByBraces<U, T>> {};
template <class U, class T>
requires(!isOptionalLike<std::remove_cvref_t<U>>) struct Fills<U, std::optional<T>>
    : std::bool_constant<std::same_as<std::remove_cvref_t<U>, std::nullopt_t> || FillsInside<U, T> ||
                         FillsInside<std::remove_cvref_t<U>, T>> {
};
template <class U, class T>
requires(isOptionalLike<std::remove_cvref_t<U>>) struct Fills<U, std::optional<T>>
    : std::bool_constant<FillsInside<typename std::remove_cvref_t<U>::value_type, T>> {
};

template <class T>
inline constexpr bool isUnsignedLike = std::unsigned_integral<T> && !std::same_as<T, bool>;
template <class T>
inline constexpr bool isUnsignedLike<std::optional<T>> = isUnsignedLike<T>;

/// A signed number for an unsigned one: checked at compile time, when its value is known.
template <class U, class T>
concept SignedFor =
    isUnsignedLike<T> && std::signed_integral<U> && !std::same_as<U, char> && !std::same_as<U, wchar_t>;

/// Never defined: its name appears in the compiler error for a literal that does not fit.
void literalIsNegativeOrTooGreatForThisArgument();

template <class T>
struct UnsignedOf {
    using type = T;
};
template <class T>
struct UnsignedOf<std::optional<T>> {
    using type = T;
};

template <class T, class U>
consteval typename UnsignedOf<T>::type exactly(U literal) {
    if (!std::in_range<typename UnsignedOf<T>::type>(literal)) literalIsNegativeOrTooGreatForThisArgument();
    return static_cast<typename UnsignedOf<T>::type>(literal);
}

}  // namespace detail

/// A field of a label struct that the caller must set: omitting it does not compile.
///
/// It accepts anything that converts to `T` without narrowing, and for a vector or map also its elements in braces. For
/// an unsigned number, optional or not, it accepts a signed constant: `.limit = 10` compiles, `.limit = -1` and `.limit
/// = n` with a variable `int n` do not. Write an empty list with its type, `.queries = std::vector<URLQueryItem>{}`,
/// because `{}` looks like an omitted field.
///
/// ```cpp
/// struct GreetArguments {
///     Required<std::string> name;
///     std::optional<std::string> title{};
/// };
/// greet({.name = "Ada"});    // compiles
/// greet({.title = "Dr"});    // does not: name is missing
/// ```
template <class T>
class Required {
public:
#if defined(__clang__)
    Required() requires detail::isListLike<T>
    = delete;
#else
    // Never satisfied. When GCC compares overloads, it treats a deleted constructor as callable. Clang ignores one
    // whose constraint is not satisfied, and reads `{}` as an empty list.
    Required() requires(detail::isListLike<T> && !std::same_as<T, T>);
#endif

    /// A value that converts without narrowing.
    template <class U>
    requires(!std::same_as<std::remove_cvref_t<U>, Required> && detail::Fills<U, T>::value &&
             !detail::SignedFor<std::remove_cvref_t<U>, T>) constexpr Required(U&& value)
        : value_{std::forward<U>(value)} {}

    /// A signed constant for an unsigned number. A negative one does not compile.
    template <detail::SignedFor<T> U>
    consteval Required(U literal) : value_{detail::exactly<T>(literal)} {}

    /// The elements of a list or map.
    constexpr Required(
        std::initializer_list<typename detail::ListElement<T>::type> elements) requires detail::isListLike<T>
        : value_(elements) {}

    /// The value.
    constexpr T& value() & noexcept { return value_; }
    /// The value.
    constexpr const T& value() const& noexcept { return value_; }
    /// The value, to be moved from.
    constexpr T&& value() && noexcept { return std::move(value_); }

    /// The value.
    constexpr operator const T&() const& noexcept { return value_; }
    /// The value, to be moved from.
    constexpr operator T&&() && noexcept { return std::move(value_); }

private:
    T value_;
};

/// Whether the value of `argument` equals `other`, which may be of any type that is comparable with `T`.
template <class T, class U>
requires requires(const T& value, const U& other) {
    { value == other } -> std::convertible_to<bool>;
}
constexpr bool operator==(const Required<T>& argument, const U& other) { return argument.value() == other; }
/// Whether both hold equal values.
template <class T>
requires std::equality_comparable<T>
constexpr bool operator==(const Required<T>& a, const Required<T>& b) { return a.value() == b.value(); }
// `std::optional` compares itself with anything that its element is comparable with, so two empty ones would differ.
/// Whether both hold equal values or are both empty.
template <class T>
requires std::equality_comparable<T>
constexpr bool operator==(const Required<std::optional<T>>& argument, const std::optional<T>& other) {
    return argument.value() == other;
}

}  // namespace VanticRestKit
