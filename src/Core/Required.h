#pragma once

/// \file
/// `Required`: a labelled argument that has no default.

#include <concepts>
#include <initializer_list>
#include <string>
#include <type_traits>
#include <utility>

namespace VanticRestKit {

namespace detail {

template <class T>
concept ListLike = !std::same_as<T, std::string> && requires {
    typename T::value_type;
}
&&std::constructible_from<T, std::initializer_list<typename T::value_type>>;

template <class T>
struct ListElement {
    struct type {};
};
template <ListLike T>
struct ListElement<T> {
    using type = typename T::value_type;
};

template <class U, class T>
concept FillsByBraces = std::convertible_to<U, T> && requires(U&& value) {
    T{std::forward<U>(value)};
};

}  // namespace detail

/// A field of a label struct that the caller must give: leaving it out does not compile.
///
/// It takes whatever converts to `T` without narrowing (so `5u`, not `5`, for an unsigned number), and for a
/// list or a dictionary also its elements in braces. An empty list is written with its type:
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
    Required() requires detail::ListLike<T>
    = delete;
#else
    // Never satisfied. GCC takes a deleted constructor for one that can be called when it compares overloads;
    // Clang overlooks one whose constraint is not met and reads `{}` as an empty list.
    Required() requires(detail::ListLike<T> && !std::same_as<T, T>);
#endif

    template <class U>
    requires(!std::same_as<std::remove_cvref_t<U>, Required> &&
             detail::FillsByBraces<U, T>) constexpr Required(U&& value)
        : value_{std::forward<U>(value)} {}

    constexpr Required(
        std::initializer_list<typename detail::ListElement<T>::type> elements) requires detail::ListLike<T>
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
