#pragma once

/// \file
/// `Error`: one handle over every error of the library and of the host. Brings `AnyValue` and `NSError`
/// along.

#include <VanticRestKit/Visibility.h>

#include <concepts>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace VanticRestKit {

class AnyValue;

struct Dictionary;

enum class ErrorCategory : std::uint8_t;

/// Identifies a concrete error type. Each error type has one object of this type, defined in one source file,
/// so that its address is the same on both sides of a library border.
struct ErrorTag {};

/// What a type offers to travel inside an `Error`.
///
/// - `static const ErrorTag& errorTag()`: its identity, defined in a source file and exported.
/// - `std::string errorDomain() const` and `std::int64_t errorCode() const`.
///
/// It may also offer `Dictionary errorUserInfo() const`, and `std::string generalDescription() const` where
/// its own text is to be shown by the general interface. Without the latter the description is the user
/// information's `NSLocalizedDescription`, else a sentence composed of domain and code.
///
/// For `adviceOn` it may offer `std::optional<ErrorCategory> errorCategory() const`, empty if the error that it holds
/// decides, and `std::optional<Error> underlyingError() const`, which gives that error.
///
/// Any thread may ask an error that is inside an `Error`, and several at once: the members must stand that.
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

namespace detail {
/// The description that `userInfo` holds; else the composed sentence.
std::string describedError(const Dictionary& userInfo, std::string_view domain, std::int64_t code);
}  // namespace detail

/// A copyable handle over any concrete error. Copies share one immutable error, and any number of threads may
/// read it. A handle that was moved from can be assigned to and destroyed, nothing else.
class VRK_EXPORT Error {
public:
    /// Holds `value`.
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

    /// The error that this one holds as its cause; empty if it holds none, or none that it shows.
    std::optional<Error> underlyingError() const;
    /// What the error itself says of its category; empty for most. `categoryOf` gives one for every error.
    std::optional<ErrorCategory> errorCategory() const;

    /// The concrete error, or null where this handle holds one of another type. Lives as long as this handle.
    template <ErrorType T>
    const T* as() const noexcept {
        return static_cast<const T*>(valueTagged(T::errorTag()));
    }

    /// Whether both handles share one error.
    friend bool operator==(const Error& a, const Error& b) noexcept { return a.box_ == b.box_; }

private:
    // Out of line: inlined into a host's completion, GCC 12 takes the handle for uninitialised and warns.
    const void* valueTagged(const ErrorTag& tag) const noexcept;

    struct AnyBox {
        virtual ~AnyBox() = default;
        virtual const ErrorTag& tag() const = 0;
        virtual const void* value() const = 0;
        virtual std::string domain() const = 0;
        virtual std::int64_t code() const = 0;
        virtual Dictionary userInfo() const = 0;
        virtual bool describesItself() const = 0;
        virtual std::string description() const = 0;
        virtual std::optional<Error> underlying() const = 0;
        virtual std::optional<ErrorCategory> category() const = 0;
    };

    template <class T>
    struct Box final : AnyBox {
        static_assert(
            !requires(T & held) { held.errorUserInfo(); } ||
                requires(const T& held) { held.errorUserInfo(); },
            "errorUserInfo() must be const");
        static_assert(
            !requires(T & held) { held.generalDescription(); } ||
                requires(const T& held) { held.generalDescription(); },
            "generalDescription() must be const");

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
        std::optional<Error> underlying() const override;
        std::optional<ErrorCategory> category() const override {
            if constexpr (requires { error.errorCategory(); }) {
                return error.errorCategory();
            } else {
                return std::nullopt;
            }
        }
        T error;
    };

    std::shared_ptr<const AnyBox> box_;
};

template <class T>
std::optional<Error> Error::Box<T>::underlying() const {
    if constexpr (requires { error.underlyingError(); }) {
        return error.underlyingError();
    } else {
        return std::nullopt;
    }
}

}  // namespace VanticRestKit

// Behind `Error`, because each of the two needs it whole, and it needs them only once it is used.
#include <VanticRestKit/platform/error/AnyValue.h>
