#pragma once

/// \file
/// `Error`: one handle over every error of the library and of the host, `AnyValue` and `NSError`.

#include <VanticRestKit/Visibility.h>

#include <concepts>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace VanticRestKit {

class AnyValue;

/// A free-form dictionary: user information of an error, a stored dataset.
using Dictionary = std::map<std::string, AnyValue, std::less<>>;

/// Identifies a concrete error type. Each error type has one object of this type, defined in one source file,
/// so that its address is the same on both sides of a library border.
struct ErrorTag {};

/// What a type offers to travel inside an `Error`.
///
/// - `static const ErrorTag& errorTag()`: its identity, defined in a source file and exported.
/// - `std::string errorDomain() const` and `std::int64_t errorCode() const`.
///
/// It may also offer `Dictionary errorUserInfo() const`, and `std::string generalDescription() const` where its
/// own text is to be shown by the general interface. Without the latter the description is the user
/// information's `NSLocalizedDescription`, else a sentence composed of domain and code.
template <class T>
concept ErrorType = requires(const T& value) {
    { T::errorTag() } -> std::same_as<const ErrorTag&>;
    { value.errorDomain() } -> std::convertible_to<std::string>;
    { value.errorCode() } -> std::convertible_to<std::int64_t>;
};

/// The key under which user information holds a description that stands as it is.
inline constexpr std::string_view NSLocalizedDescriptionKey = "NSLocalizedDescription";
/// The key under which user information holds the error that caused this one.
inline constexpr std::string_view NSUnderlyingErrorKey = "NSUnderlyingError";
/// The key under which user information holds the text of the URL that failed.
inline constexpr std::string_view NSURLErrorFailingURLStringErrorKey = "NSErrorFailingURLStringKey";

/// "The operation couldn’t be completed. (DOMAIN error CODE.)", the sentence for an error without a text.
VRK_EXPORT std::string composedErrorDescription(std::string_view domain, std::int64_t code);

/// A copyable handle over any concrete error. Copies share one immutable error.
class VRK_EXPORT Error {
public:
    /// Holds a copy of `value`.
    template <ErrorType T>
    Error(T value) : box_(std::make_shared<const Box<T>>(std::move(value))) {}

    /// The family of the error, such as "NSURLErrorDomain".
    std::string domain() const { return box_->domain(); }
    /// The number of the error within its domain.
    std::int64_t code() const { return box_->code(); }
    /// Further values that the error carries; empty for most.
    Dictionary userInfo() const;
    /// A sentence for people.
    std::string localizedDescription() const;

    /// The concrete error, or null where this handle holds one of another type. Lives as long as this handle.
    template <ErrorType T>
    const T* as() const noexcept {
        return &box_->tag() == &T::errorTag() ? static_cast<const T*>(box_->value()) : nullptr;
    }

    /// Whether both handles share one error.
    friend bool operator==(const Error& a, const Error& b) noexcept { return a.box_ == b.box_; }

private:
    struct AnyBox {
        virtual ~AnyBox() = default;
        virtual const ErrorTag& tag() const = 0;
        virtual const void* value() const = 0;
        virtual std::string domain() const = 0;
        virtual std::int64_t code() const = 0;
        virtual Dictionary userInfo() const = 0;
        virtual bool describesItself() const = 0;
        virtual std::string description() const = 0;
    };

    template <class T>
    struct Box final : AnyBox {
        explicit Box(T held) : error(std::move(held)) {}
        const ErrorTag& tag() const override { return T::errorTag(); }
        const void* value() const override { return &error; }
        std::string domain() const override { return error.errorDomain(); }
        std::int64_t code() const override { return error.errorCode(); }
        Dictionary userInfo() const override;
        bool describesItself() const override {
            return requires { error.generalDescription(); };
        }
        std::string description() const override {
            if constexpr (requires { error.generalDescription(); }) {
                return error.generalDescription();
            } else {
                return {};
            }
        }
        T error;
    };

    std::shared_ptr<const AnyBox> box_;
};

/// A value of free-form data: text, a whole number, a truth value, a number with a fraction, an error, or
/// something else that the library carries without looking into it.
class AnyValue {
public:
    /// A value of none of the other kinds. It does not travel to a service.
    struct Other {
        std::string description;
        friend bool operator==(const Other&, const Other&) = default;
    };

    AnyValue() : value_(Other{}) {}
    AnyValue(std::string text) : value_(std::move(text)) {}
    AnyValue(std::string_view text) : value_(std::string(text)) {}
    AnyValue(const char* text) : value_(std::string(text)) {}
    AnyValue(bool truth) : value_(truth) {}
    template <std::integral I>
        requires(!std::same_as<I, bool>)
    AnyValue(I number) : value_(static_cast<std::int64_t>(number)) {}
    AnyValue(double number) : value_(number) {}
    AnyValue(Error error) : value_(std::move(error)) {}
    AnyValue(Other other) : value_(std::move(other)) {}

    /// The text, or null where this is no text.
    const std::string* text() const noexcept { return std::get_if<std::string>(&value_); }
    /// The whole number, or null. A truth value is no number.
    const std::int64_t* integer() const noexcept { return std::get_if<std::int64_t>(&value_); }
    /// The truth value, or null.
    const bool* boolean() const noexcept { return std::get_if<bool>(&value_); }
    /// The number with a fraction, or null.
    const double* number() const noexcept { return std::get_if<double>(&value_); }
    /// The error, or null.
    const Error* error() const noexcept { return std::get_if<Error>(&value_); }

    friend bool operator==(const AnyValue&, const AnyValue&) = default;

private:
    std::variant<std::string, std::int64_t, bool, double, Error, Other> value_;
};

template <class T>
Dictionary Error::Box<T>::userInfo() const {
    if constexpr (requires { error.errorUserInfo(); }) {
        return error.errorUserInfo();
    } else {
        return {};
    }
}

/// An error told by its parts alone: domain, code and user information.
class VRK_EXPORT NSError {
public:
    NSError(std::string domain, std::int64_t code, Dictionary userInfo = {})
        : domain_(std::move(domain)), code_(code), userInfo_(std::move(userInfo)) {}

    /// The parts of any error: what the platform's bridge makes of it.
    explicit NSError(const Error& error) : NSError(error.domain(), error.code(), error.userInfo()) {}

    const std::string& domain() const noexcept { return domain_; }
    std::int64_t code() const noexcept { return code_; }
    const Dictionary& userInfo() const noexcept { return userInfo_; }
    /// The user information's description where there is one, else the composed sentence.
    std::string localizedDescription() const;

    static const ErrorTag& errorTag();
    std::string errorDomain() const { return domain_; }
    std::int64_t errorCode() const { return code_; }
    Dictionary errorUserInfo() const { return userInfo_; }

private:
    std::string domain_;
    std::int64_t code_;
    Dictionary userInfo_;
};

}  // namespace VanticRestKit
