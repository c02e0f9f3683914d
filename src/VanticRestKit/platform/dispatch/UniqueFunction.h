#pragma once

/// \file
/// `UniqueFunction`, a move-only callable, and `Block`, one without arguments.

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

namespace VanticRestKit {

template <class Signature>
class UniqueFunction;

namespace detail {

/// Callables that may be empty: other wrappers such as `std::function`.
template <class F>
inline constexpr bool isFunctionWrapper = false;
template <template <class> class Wrapper, class R, class... Args>
inline constexpr bool isFunctionWrapper<Wrapper<R(Args...)>> = true;

template <class F, class R, class... Args>
concept CallableAs = requires(F& function, Args&&... args) {
    function(std::forward<Args>(args)...);
    requires std::is_void_v<R> || requires {
        requires std::is_convertible_v<decltype(function(std::forward<Args>(args)...)), R>;
    };
};

/// Stands for an argument of type F. A callable may itself convert from a wrapper. Then whether it can be constructed
/// from F would depend on whether the wrapper can be, which is the question being answered. No wrapper can be
/// constructed from this type.
template <class F>
struct ArgumentOf {
    operator F&&() const noexcept;
};

template <class Target, class F>
concept KeepsArgument = std::is_constructible_v<Target, ArgumentOf<F>>;

}  // namespace detail

/// Owns one callable of any type, including move-only ones. Small callables are stored in place.
///
/// Empty when made from nothing, from `nullptr`, or from an empty pointer or wrapper; calling an empty one aborts the
/// process. It may be moved to another thread, but must not be used by two threads at once, nor assigned to or
/// destroyed during its own call.
template <class R, class... Args>
class UniqueFunction<R(Args...)> {
public:
    UniqueFunction() noexcept = default;
    /// Holds nothing.
    UniqueFunction(std::nullptr_t) noexcept {}

    /// Holds a callable.
    template <class F, class Target = std::decay_t<F>>
    requires(!std::is_same_v<Target, UniqueFunction> && detail::CallableAs<Target, R, Args...> &&
             detail::KeepsArgument<Target, F>) UniqueFunction(F&& function) {
        if constexpr (std::is_pointer_v<std::remove_cvref_t<F>> || detail::isFunctionWrapper<Target>) {
            if (!function) return;
        }
        if constexpr (fitsInPlace<Target>) {
            ::new (static_cast<void*>(storage_)) Target(std::forward<F>(function));
            operations_ = &inPlace<Target>;
        } else {
            ::new (static_cast<void*>(storage_)) Target*(new Target(std::forward<F>(function)));
            operations_ = &onHeap<Target>;
        }
    }

    /// Takes over what `other` holds, which is then empty.
    UniqueFunction(UniqueFunction&& other) noexcept { take(other); }
    /// Takes over what `other` holds, which is then empty.
    UniqueFunction& operator=(UniqueFunction&& other) noexcept {
        // The old callable is destroyed last, once this holds the new one: its destructor may use this object.
        UniqueFunction incoming(std::move(other));
        UniqueFunction outgoing(std::move(*this));
        take(incoming);
        return *this;
    }
    ~UniqueFunction() {
        if (operations_ != nullptr) operations_->destroy(storage_);
    }

    /// Whether it holds a callable.
    explicit operator bool() const noexcept { return operations_ != nullptr; }

    /// Calls the callable. Must not be empty.
    R operator()(Args... args) {
        if (operations_ == nullptr) std::abort();
        return operations_->call(storage_, std::forward<Args>(args)...);
    }

private:
    struct Operations {
        R (*call)(void* storage, Args&&... args);
        void (*move)(void* from, void* to) noexcept;
        void (*destroy)(void* storage) noexcept;
    };

    static constexpr std::size_t inPlaceSize = 4 * sizeof(void*);

    template <class F>
    static constexpr bool fitsInPlace =
        sizeof(F) <= inPlaceSize && alignof(F) <= alignof(void*) && std::is_nothrow_move_constructible_v<F>;

    template <class F>
    static R callTarget(F& function, Args&&... args) {
        if constexpr (std::is_void_v<R>) {
            static_cast<void>(function(std::forward<Args>(args)...));
        } else {
            return function(std::forward<Args>(args)...);
        }
    }

    template <class F>
    static F& held(void* storage) noexcept {
        return *std::launder(static_cast<F*>(storage));
    }

    template <class F>
    static constexpr Operations inPlace{[](void* storage, Args&&... args) -> R {
                                            return callTarget(held<F>(storage), std::forward<Args>(args)...);
                                        },
                                        [](void* from, void* to) noexcept {
                                            ::new (to) F(std::move(held<F>(from)));
                                            held<F>(from).~F();
                                        },
                                        [](void* storage) noexcept { held<F>(storage).~F(); }};

    template <class F>
    static constexpr Operations onHeap{[](void* storage, Args&&... args) -> R {
                                           return callTarget(*held<F*>(storage), std::forward<Args>(args)...);
                                       },
                                       [](void* from, void* to) noexcept { ::new (to) F*(held<F*>(from)); },
                                       [](void* storage) noexcept { delete held<F*>(storage); }};

    void take(UniqueFunction& other) noexcept {
        if (other.operations_ == nullptr) return;
        other.operations_->move(other.storage_, storage_);
        operations_ = std::exchange(other.operations_, nullptr);
    }

    alignas(void*) std::byte storage_[inPlaceSize];
    const Operations* operations_ = nullptr;
};

/// A piece of work for a queue.
using Block = UniqueFunction<void()>;

}  // namespace VanticRestKit
