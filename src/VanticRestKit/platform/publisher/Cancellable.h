#pragma once

/// \file
/// `Cancellable`: the handle of an operation or subscription.

#include <VanticRestKit/platform/dispatch/UniqueFunction.h>
#include <VanticRestKit/Visibility.h>

#include <memory>
#include <utility>

namespace VanticRestKit {

namespace detail {

/// The object that a `Cancellable` cancels.
class VRK_EXPORT CancelTarget {
public:
    CancelTarget() = default;
    CancelTarget(const CancelTarget&) = delete;
    CancelTarget& operator=(const CancelTarget&) = delete;
    virtual ~CancelTarget();

    /// Called on any thread, any number of times; only the first call has an effect.
    virtual void cancel() = 0;

    /// The handle was destroyed without `cancel()`. Called once, on any thread.
    virtual void drop() { cancel(); }
};

}  // namespace detail

/// Owns an operation in progress; destroying the handle cancels it.
///
/// For a load, `cancel()` and destruction differ: after `cancel()` its completion is called with the error of a
/// cancelled load; after destruction it is not called. A subscription delivers nothing after either.
///
/// `cancel()` may be called on any thread, and by several threads at once, but not while the handle is being moved or
/// destroyed.
class VRK_EXPORT Cancellable {
public:
    /// Cancels nothing.
    Cancellable() noexcept = default;

    /// The first `cancel()` runs `onCancel` on its thread and destroys it.
    explicit Cancellable(Block onCancel);

    /// Cancels `target`. Null cancels nothing.
    explicit Cancellable(std::shared_ptr<detail::CancelTarget> target) noexcept
        : target_(std::move(target)) {}

    Cancellable(Cancellable&& other) noexcept = default;
    /// Cancels the operation that this handle owned before.
    Cancellable& operator=(Cancellable&& other) noexcept;
    ~Cancellable();

    /// Cancels the operation. Further calls do nothing.
    void cancel() const;

    /// Releases the operation, which continues; the handle then owns nothing.
    void detach() noexcept { target_.reset(); }

private:
    std::shared_ptr<detail::CancelTarget> target_;
};

}  // namespace VanticRestKit
