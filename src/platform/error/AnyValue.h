#pragma once

/// \file
/// `AnyValue`: a value of free-form data.

#include <VanticRestKit/platform/error/Error.h>

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace VanticRestKit {

namespace detail {

template <class I, class... Others>
concept NoneOf = (!std::same_as<I, Others> && ...);

/// An integer type that stands for a number: neither a truth value nor a character.
template <class I>
concept WholeNumber = std::integral<I> && NoneOf<I, bool, char, wchar_t, char8_t, char16_t, char32_t>;

}  // namespace detail

/// A value of free-form data: text, a whole number, a truth value, a floating-point number, an error, or
/// something else that the library carries without looking into it.
class AnyValue {
public:
    /// A value of none of the other kinds. It does not travel to a service.
    struct Other {
        std::string description;
        friend bool operator==(const Other&, const Other&) = default;
    };

    /// Of none of the other kinds, without a description.
    AnyValue() = default;
    AnyValue(std::string text) : value_(std::move(text)) {}
    AnyValue(std::string_view text) : value_(std::string(text)) {}
    AnyValue(const char* text) : value_(std::string(text)) {}
    AnyValue(std::nullptr_t) = delete;
    /// Templates, as this and those for numbers are, take no other type by conversion: a pointer would turn
    /// into a truth value, a character into a number.
    template <std::same_as<bool> B>
    AnyValue(B truth) : value_(truth) {}
    /// A number too great for 64 bits with a sign is of the other kind, with its digits as the description.
    template <detail::WholeNumber I>
    AnyValue(I number) {
        if (std::in_range<std::int64_t>(number)) {
            value_ = static_cast<std::int64_t>(number);
        } else {
            value_ = Other{std::to_string(number)};
        }
    }
    template <std::floating_point F>
    AnyValue(F number) : value_(static_cast<double>(number)) {}
    AnyValue(Error error) : value_(std::move(error)) {}
    AnyValue(Other other) : value_(std::move(other)) {}

    /// The text, or null where this is no text.
    const std::string* text() const noexcept { return std::get_if<std::string>(&value_); }
    /// The whole number, or null. A truth value is no number.
    const std::int64_t* integer() const noexcept { return std::get_if<std::int64_t>(&value_); }
    /// The truth value, or null.
    const bool* boolean() const noexcept { return std::get_if<bool>(&value_); }
    /// The floating-point number, or null. A whole number is none.
    const double* number() const noexcept { return std::get_if<double>(&value_); }
    /// The error, or null.
    const Error* error() const noexcept { return std::get_if<Error>(&value_); }
    /// What is of none of the other kinds, or null.
    const Other* other() const noexcept { return std::get_if<Other>(&value_); }

    /// Whether both are of one kind and equal. 1 and 1.0 are of two kinds; of errors, only handles of one
    /// error are equal.
    friend bool operator==(const AnyValue&, const AnyValue&) = default;

private:
    std::variant<std::string, std::int64_t, bool, double, Error, Other> value_{Other{}};
};

template <class T>
Dictionary Error::Box<T>::userInfo() const {
    if constexpr (requires { error.errorUserInfo(); }) {
        return error.errorUserInfo();
    } else {
        return {};
    }
}

}  // namespace VanticRestKit
