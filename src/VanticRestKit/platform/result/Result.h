#pragma once

/// \file
/// `Result`: a value or an error.

#include <concepts>
#include <cstddef>
#include <cstdlib>
#include <type_traits>
#include <utility>
#include <variant>

namespace VanticRestKit {

/// Wraps an error so that it converts to any `Result` with that error type: `return Failure(error);`
template <class E>
class [[nodiscard]] Failure {
public:
    /// Wraps an error.
    constexpr explicit Failure(E error) : error_(std::move(error)) {}

    /// The error.
    constexpr const E& error() const& noexcept { return error_; }
    /// The error, to be moved from.
    constexpr E&& error() && noexcept { return std::move(error_); }

private:
    E error_;
};

/// A value of type T, or an error of type E. `T` may be `void`.
///
/// The member names are those of `std::expected`, but nothing throws: accessing the value of a failure, or the error of
/// a success, aborts the process. Check `has_value()` first. A moved-from `Result` keeps its `has_value()`.
template <class T, class E>
class [[nodiscard]] Result {
public:
    /// The type of the value.
    using value_type = T;
    /// The type of the error.
    using error_type = E;

    /// A success.
    constexpr Result(T value) : storage_(std::in_place_index<0>, std::move(value)) {}
    /// A failure: `return Failure(error);`
    template <class G>
    requires std::is_constructible_v<E, G>
    constexpr Result(Failure<G> failure) : storage_(std::in_place_index<1>, std::move(failure).error()) {}

    /// Whether this is a success.
    constexpr bool has_value() const noexcept { return storage_.index() == 0; }
    /// Whether this is a success.
    constexpr explicit operator bool() const noexcept { return has_value(); }

    /// The value. Ends the process if there is none.
    constexpr T& value() & noexcept { return *held<0>(storage_); }
    /// The value. Ends the process if there is none.
    constexpr const T& value() const& noexcept { return *held<0>(storage_); }
    /// The value, to be moved from. Ends the process if there is none.
    constexpr T&& value() && noexcept { return std::move(*held<0>(storage_)); }
    /// As `value`.
    constexpr T& operator*() & noexcept { return value(); }
    /// As `value`.
    constexpr const T& operator*() const& noexcept { return value(); }
    /// As `value`.
    constexpr T&& operator*() && noexcept { return std::move(*this).value(); }
    /// A member of the value. Ends the process if there is none.
    constexpr T* operator->() noexcept { return held<0>(storage_); }
    /// A member of the value. Ends the process if there is none.
    constexpr const T* operator->() const noexcept { return held<0>(storage_); }

    /// The error. Ends the process if there is none.
    constexpr E& error() & noexcept { return *held<1>(storage_); }
    /// The error. Ends the process if there is none.
    constexpr const E& error() const& noexcept { return *held<1>(storage_); }
    /// The error, to be moved from. Ends the process if there is none.
    constexpr E&& error() && noexcept { return std::move(*held<1>(storage_)); }

    /// The value, or `fallback` if there is none.
    template <class U>
    constexpr T value_or(U&& fallback) const& {
        return has_value() ? value() : static_cast<T>(std::forward<U>(fallback));
    }
    /// The value, moved out, or `fallback` if there is none.
    template <class U>
    constexpr T value_or(U&& fallback) && {
        return has_value() ? std::move(*this).value() : static_cast<T>(std::forward<U>(fallback));
    }

    /// Whether both hold equal values or both hold equal errors.
    friend constexpr bool operator==(
        const Result&, const Result&) requires std::equality_comparable<T> && std::equality_comparable<E>
    = default;

private:
    template <std::size_t I, class V>
    static constexpr auto* held(V& storage) noexcept {
        auto* const side = std::get_if<I>(&storage);
        if (side == nullptr) std::abort();
        return side;
    }

    std::variant<T, E> storage_;
};

/// Success without a value, or an error.
template <class E>
class [[nodiscard]] Result<void, E> {
public:
    /// The type of the value.
    using value_type = void;
    /// The type of the error.
    using error_type = E;

    constexpr Result() = default;
    /// A failure: `return Failure(error);`
    template <class G>
    requires std::is_constructible_v<E, G>
    constexpr Result(Failure<G> failure) : storage_(std::in_place_index<1>, std::move(failure).error()) {}

    /// Whether this is a success.
    constexpr bool has_value() const noexcept { return storage_.index() == 0; }
    /// Whether this is a success.
    constexpr explicit operator bool() const noexcept { return has_value(); }

    /// Does nothing, but aborts the process if there is an error, as the other form does.
    constexpr void value() const noexcept {
        if (!has_value()) std::abort();
    }

    /// The error. Ends the process if there is none.
    constexpr E& error() & noexcept { return *held(storage_); }
    /// The error. Ends the process if there is none.
    constexpr const E& error() const& noexcept { return *held(storage_); }
    /// The error, to be moved from. Ends the process if there is none.
    constexpr E&& error() && noexcept { return std::move(*held(storage_)); }

    /// Whether both are successes or both hold equal errors.
    friend constexpr bool operator==(const Result&, const Result&) requires std::equality_comparable<E>
    = default;

private:
    template <class V>
    static constexpr auto* held(V& storage) noexcept {
        auto* const error = std::get_if<1>(&storage);
        if (error == nullptr) std::abort();
        return error;
    }

    std::variant<std::monostate, E> storage_;
};

}  // namespace VanticRestKit
