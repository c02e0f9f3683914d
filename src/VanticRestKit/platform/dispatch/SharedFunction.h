#pragma once

/// \file
/// `SharedFunction`: a callable whose copies share one target.

#include <VanticRestKit/platform/dispatch/UniqueFunction.h>

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <type_traits>
#include <utility>

namespace VanticRestKit {

template <class Signature>
class SharedFunction;

/// Refers to one callable of any type. A copy costs a reference count, and all copies share the callable's state. Used
/// instead of `std::function`, whose header alone would increase a host's compile time for this library by a twelfth.
///
/// Empty when made from nothing, from `nullptr`, or from an empty pointer or wrapper; calling an empty one aborts the
/// process. Several threads may call it at once if the callable allows that.
template <class R, class... Args>
class SharedFunction<R(Args...)> {
public:
    SharedFunction() noexcept = default;
    /// Holds nothing.
    SharedFunction(std::nullptr_t) noexcept {}

    /// Holds a callable.
    template <class F>
    requires(!std::is_same_v<std::decay_t<F>, SharedFunction> &&
             std::is_constructible_v<UniqueFunction<R(Args...)>, F>) SharedFunction(F&& function) {
        UniqueFunction<R(Args...)> made(std::forward<F>(function));
        if (made) function_ = std::make_shared<UniqueFunction<R(Args...)>>(std::move(made));
    }

    /// Whether it holds a callable.
    explicit operator bool() const noexcept { return function_ != nullptr; }

    /// Calls the callable. Must not be empty.
    R operator()(Args... args) const {
        if (function_ == nullptr) std::abort();
        return (*function_)(std::forward<Args>(args)...);
    }

private:
    std::shared_ptr<UniqueFunction<R(Args...)>> function_;
};

}  // namespace VanticRestKit
