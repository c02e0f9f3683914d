#pragma once

/// \file
/// `AnyValue`, a value of free-form data, and `Dictionary`, which maps keys to such values.

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

/// An integer type that represents a number: neither Boolean nor a character type.
template <class I>
concept WholeNumber = std::integral<I> && NoneOf<I, bool, char, wchar_t, char8_t, char16_t, char32_t>;

}  // namespace detail

/// A value of free-form data: a string, an integer, a Boolean, a floating-point number, an error, or anything else,
/// which the library passes on without inspecting it.
class VRK_EXPORT AnyValue {
public:
    /// A value of any other kind. It is not sent to a service.
    struct Other {
        /// A description for logs.
        std::string description;
        friend bool operator==(const Other&, const Other&) = default;
    };

    /// An `Other` without a description.
    AnyValue();
    /// A string.
    AnyValue(std::string text);
    /// A string.
    AnyValue(std::string_view text);
    /// A string.
    AnyValue(const char* text);
    AnyValue(std::nullptr_t) = delete;
    /// A template, like the constructors for numbers, so that nothing converts implicitly: a pointer would become a
    /// Boolean and a character a number.
    template <std::same_as<bool> B>
    AnyValue(B truth) : AnyValue(ofTruth(truth)) {}
    /// A number beyond the range of a signed 64-bit integer becomes an `Other` with its digits as description.
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

    /// The string, or null if this is not a string.
    const std::string* text() const noexcept;
    /// The integer, or null. A Boolean is not an integer.
    const std::int64_t* integer() const noexcept;
    /// The Boolean, or null.
    const bool* boolean() const noexcept;
    /// The floating-point number, or null. An integer is not one.
    const double* number() const noexcept;
    /// The error, or null.
    const Error* error() const noexcept;
    /// The `Other`, or null.
    const Other* other() const noexcept;

    /// Whether both are of the same kind and equal. 1 and 1.0 are of different kinds; errors are equal if both handles
    /// share one error.
    friend VRK_EXPORT bool operator==(const AnyValue& a, const AnyValue& b);

private:
    static AnyValue ofTruth(bool truth);
    static AnyValue ofInteger(std::int64_t number);
    static AnyValue ofUnsigned(std::uint64_t number);
    static AnyValue ofNumber(double number);

    std::variant<std::string, std::int64_t, bool, double, Error, Other> value_;
};

/// A free-form dictionary, such as the user information of an error or a stored dataset. A map that also reads typed
/// values by key: `error.userInfo().text("url_host").value_or("no host")`.
struct VRK_EXPORT Dictionary : std::map<std::string, AnyValue, std::less<>> {
    using map::map;

    /// The value of `key` if there is one of that kind; otherwise empty.
    std::optional<std::string> text(std::string_view key) const;
    /// As `text`, for an integer.
    std::optional<std::int64_t> integer(std::string_view key) const;
    /// As `text`, for a Boolean.
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
