#pragma once

/// \file
/// `Cancellable`: the handle that keeps a subscription going.

#include <VanticRestKit/platform/dispatch/UniqueFunction.h>
#include <VanticRestKit/Visibility.h>

#include <memory>
#include <utility>

namespace VanticRestKit {

namespace detail {

/// What a `Cancellable` cancels.
class VRK_EXPORT CancelTarget {
public:
    CancelTarget() = default;
    CancelTarget(const CancelTarget&) = delete;
    CancelTarget& operator=(const CancelTarget&) = delete;
    virtual ~CancelTarget();

    /// Called on any thread, any number of times; the first call counts.
    virtual void cancel() = 0;

    /// The handle goes without `cancel()`. Called on any thread, once.
    virtual void drop() { cancel(); }
};

}  // namespace detail

/// Owns something that is under way; destroying it cancels that.
///
/// For a load, `cancel()` and destruction differ: after `cancel()` its completion is called with the error of a
/// cancelled load; after destruction it is not called. A subscription delivers nothing after either.
///
/// `cancel()` may be called on any thread, by several at once too. As with every object, nobody may use it
/// any more while it is moved or destroyed.
class VRK_EXPORT Cancellable {
public:
    /// Cancels nothing.
    Cancellable() noexcept = default;

    /// Runs `onCancel` at the first `cancel()`, on its thread, and destroys it.
    explicit Cancellable(Block onCancel);

    /// Cancels `target`. Null cancels nothing.
    explicit Cancellable(std::shared_ptr<detail::CancelTarget> target) noexcept
        : target_(std::move(target)) {}

    Cancellable(Cancellable&& other) noexcept = default;
    /// Cancels what this held before.
    Cancellable& operator=(Cancellable&& other) noexcept;
    ~Cancellable();

    /// Cancels now. Later calls do nothing.
    void cancel() const;

    /// Lets what is under way go on without this handle, which then cancels nothing.
    void detach() noexcept { target_.reset(); }

private:
    std::shared_ptr<detail::CancelTarget> target_;
};

}  // namespace VanticRestKit
