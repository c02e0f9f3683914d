#pragma once

/// \file
/// `Replaceable`: a value that several threads replace and read as a whole.

#include <mutex>
#include <utility>

namespace VanticRestKit::detail {

/// Holds one value. A store replaces all of it, a load copies all of it, and the last store wins.
///
/// Nothing is merged: code that needs a consistent value calls `load()` once and works on that copy. What a thread
/// wrote before a store is visible to threads that load the stored value.
template <class T>
class Replaceable {
public:
    Replaceable() : value_() {}
    explicit Replaceable(T value) : value_(std::move(value)) {}
    Replaceable(const Replaceable&) = delete;
    Replaceable& operator=(const Replaceable&) = delete;

    /// Replaces the value. The old one is destroyed here, after the lock is released, since its destructor may run
    /// code that uses this object.
    void store(T value) {
        const std::lock_guard lock(mutex_);
        using std::swap;
        swap(value_, value);
    }

    /// A copy of the current value.
    T load() const {
        const std::lock_guard lock(mutex_);
        return value_;
    }

private:
    mutable std::mutex mutex_;
    T value_;
};

}  // namespace VanticRestKit::detail
