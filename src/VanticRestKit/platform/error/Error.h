#pragma once

/// \file
/// `Error`: a handle for any error of the library or the host. Also provides `AnyValue` and `NSError`.

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

/// Identifies a concrete error type. Each error type has one tag, defined in a source file, so that its address is the
/// same in every shared library.
struct ErrorTag {};

/// The requirements on a type that an `Error` can hold.
///
/// - `static const ErrorTag& errorTag()`: its identity, defined in a source file and exported.
/// - `std::string errorDomain() const` and `std::int64_t errorCode() const`.
///
/// Optional: `Dictionary errorUserInfo() const`, and `std::string generalDescription() const` if the type has its own
/// description for the general interface. Without it, the description is `NSLocalizedDescription` of the user
/// information, or else a sentence composed of domain and code.
///
/// Optional, for `adviceOn`: `std::optional<ErrorCategory> errorCategory() const`, empty if the underlying error
/// decides, and `std::optional<Error> underlyingError() const`, which returns that error.
///
/// All these members must be safe to call from several threads at once.
template <class T>
concept ErrorType = requires(const T& value) {
    { T::errorTag() } -> std::same_as<const ErrorTag&>;
    { value.errorDomain() } -> std::convertible_to<std::string>;
    { value.errorCode() } -> std::convertible_to<std::int64_t>;
};

/// User information key of a description that is used unchanged.
inline constexpr std::string_view NSLocalizedDescriptionKey = "NSLocalizedDescription";
/// User information key of the error that caused this one.
inline constexpr std::string_view NSUnderlyingErrorKey = "NSUnderlyingError";
/// User information key of the failing URL, as a string.
inline constexpr std::string_view NSURLErrorFailingURLStringErrorKey = "NSErrorFailingURLStringKey";

/// "The operation couldn’t be completed. (DOMAIN error CODE.)", the sentence for an error without a description.
VRK_EXPORT std::string composedErrorDescription(std::string_view domain, std::int64_t code);

namespace detail {
/// The description in `userInfo`, or else the composed sentence.
std::string describedError(const Dictionary& userInfo, std::string_view domain, std::int64_t code);
}  // namespace detail

/// A copyable handle for any concrete error. Copies share one immutable error, and any number of threads may read it. A
/// moved-from handle may only be assigned to or destroyed.
class VRK_EXPORT Error {
public:
    /// Holds `value`.
    template <ErrorType T>
    Error(T value) : box_(std::make_shared<const Box<T>>(std::move(value))) {}

    /// The domain of the error, such as "NSURLErrorDomain".
    std::string domain() const { return box_->domain(); }
    /// The error code within the domain.
    std::int64_t code() const { return box_->code(); }
    /// Additional values of the error; empty for most.
    Dictionary userInfo() const;
    /// A human-readable sentence.
    std::string localizedDescription() const;

    /// The underlying error; empty if there is none or if the error type does not provide it.
    std::optional<Error> underlyingError() const;
    /// The category that the error itself provides; empty for most. `categoryOf` gives one for every error.
    std::optional<ErrorCategory> errorCategory() const;

    /// The concrete error, or null if this handle holds another type. Valid as long as this handle.
    template <ErrorType T>
    const T* as() const noexcept {
        return static_cast<const T*>(valueTagged(T::errorTag()));
    }

    /// Whether both handles share one error.
    friend bool operator==(const Error& a, const Error& b) noexcept { return a.box_ == b.box_; }

private:
    // Out of line: if it is inlined into a host's completion, GCC 12 warns falsely of an uninitialised handle.
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

// After `Error`, because both need the complete type, while `Error` only needs them where its members are used.
#include <VanticRestKit/platform/error/AnyValue.h>
