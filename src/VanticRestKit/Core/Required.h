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

/// What stands between the braces of a list or a dictionary. Named type by type, which a compiler settles
/// much faster than the question what can be constructed from what.
template <class T>
struct ListElement {
    using type = NoElement;
};
template <class T>
struct ListElement<std::vector<T>> {
    using type = T;
};
template <class Key, class T, class Compare>
struct ListElement<std::map<Key, T, Compare>> {
    using type = std::pair<const Key, T>;
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

// An optional converts what it is given by itself and would let an unfit number through. Whole numbers may
// stand for numbers with a fraction, as `timeout = 5` does.
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

}  // namespace detail

/// A field of a label struct that the caller must give: leaving it out does not compile.
///
/// It takes whatever converts to `T` without narrowing (so `5u`, not `5`, for an unsigned number, also for
/// one that may be empty), and for a vector or a map also its elements in braces. An empty list is written
/// with its type:
/// `.queries = std::vector<URLQueryItem>{}`, because `{}` is what a field that was left out reads like.
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
    // Never satisfied. GCC takes a deleted constructor for one that can be called when it compares overloads;
    // Clang overlooks one whose constraint is not met and reads `{}` as an empty list.
    Required() requires(detail::isListLike<T> && !std::same_as<T, T>);
#endif

    template <class U>
    requires(!std::same_as<std::remove_cvref_t<U>, Required> &&
             detail::Fills<U, T>::value) constexpr Required(U&& value)
        : value_{std::forward<U>(value)} {}

    constexpr Required(
        std::initializer_list<typename detail::ListElement<T>::type> elements) requires detail::isListLike<T>
        : value_(elements) {}

    constexpr T& value() & noexcept { return value_; }
    constexpr const T& value() const& noexcept { return value_; }
    constexpr T&& value() && noexcept { return std::move(value_); }

    constexpr operator const T&() const& noexcept { return value_; }
    constexpr operator T&&() && noexcept { return std::move(value_); }

private:
    T value_;
};

}  // namespace VanticRestKit
