#pragma once

/// \file
/// `AnyValue`: a value of free-form data, and `Dictionary`: such values by their keys.

#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/Visibility.h>

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
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
class VRK_EXPORT AnyValue {
public:
    /// A value of none of the other kinds. It does not travel to a service.
    struct Other {
        /// What is known of it, for logs.
        std::string description;
        friend bool operator==(const Other&, const Other&) = default;
    };

    /// Of none of the other kinds, without a description.
    AnyValue();
    /// A string.
    AnyValue(std::string text);
    /// A string.
    AnyValue(std::string_view text);
    /// A string.
    AnyValue(const char* text);
    AnyValue(std::nullptr_t) = delete;
    /// Templates, as this and those for numbers are, take no other type by conversion: a pointer would turn
    /// into a truth value, a character into a number.
    template <std::same_as<bool> B>
    AnyValue(B truth) : AnyValue(ofTruth(truth)) {}
    /// A number too great for 64 bits with a sign is of the other kind, with its digits as the description.
    template <detail::WholeNumber I>
    AnyValue(I number)
        : AnyValue(std::signed_integral<I> ? ofInteger(static_cast<std::int64_t>(number))
                                           : ofUnsigned(static_cast<std::uint64_t>(number))) {}
    /// A floating-point number.
    template <std::floating_point F>
    AnyValue(F number) : AnyValue(ofNumber(static_cast<double>(number))) {}
    /// An error.
    AnyValue(Error error);
    /// Something else.
    AnyValue(Other other);

    /// A copy.
    AnyValue(const AnyValue& other);
    /// Takes over the value of `other`.
    AnyValue(AnyValue&& other) noexcept;
    /// A copy.
    AnyValue& operator=(const AnyValue& other);
    /// Takes over the value of `other`.
    AnyValue& operator=(AnyValue&& other) noexcept;
    ~AnyValue();

    /// The text, or null where this is no text.
    const std::string* text() const noexcept;
    /// The whole number, or null. A truth value is no number.
    const std::int64_t* integer() const noexcept;
    /// The truth value, or null.
    const bool* boolean() const noexcept;
    /// The floating-point number, or null. A whole number is none.
    const double* number() const noexcept;
    /// The error, or null.
    const Error* error() const noexcept;
    /// What is of none of the other kinds, or null.
    const Other* other() const noexcept;

    /// Whether both are of one kind and equal. 1 and 1.0 are of two kinds; of errors, only handles of one
    /// error are equal.
    friend VRK_EXPORT bool operator==(const AnyValue& a, const AnyValue& b);

private:
    static AnyValue ofTruth(bool truth);
    static AnyValue ofInteger(std::int64_t number);
    static AnyValue ofUnsigned(std::uint64_t number);
    static AnyValue ofNumber(double number);

    std::variant<std::string, std::int64_t, bool, double, Error, Other> value_;
};

/// A free-form dictionary: user information of an error, a stored dataset. It is a map, and reads single values by
/// their key: `error.userInfo().text("url_host").value_or("no host")`.
struct VRK_EXPORT Dictionary : std::map<std::string, AnyValue, std::less<>> {
    using map::map;

    /// The value of `key` if there is one of that kind, as `AnyValue` tells the kinds; empty otherwise.
    std::optional<std::string> text(std::string_view key) const;
    /// As `text`, for a whole number.
    std::optional<std::int64_t> integer(std::string_view key) const;
    /// As `text`, for a truth value.
    std::optional<bool> boolean(std::string_view key) const;
    /// As `text`, for a floating-point number.
    std::optional<double> number(std::string_view key) const;
    /// As `text`, for an error.
    std::optional<Error> error(std::string_view key) const;
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

#include <VanticRestKit/platform/error/NSError.h>
