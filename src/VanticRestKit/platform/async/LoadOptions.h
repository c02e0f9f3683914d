#pragma once

/// \file
/// `LoadOptions`: where a load delivers, how long it may take, and what cancels it.

#include <VanticRestKit/platform/dispatch/DispatchQueue.h>

#include <chrono>
#include <optional>
#include <stop_token>

namespace VanticRestKit {

/// The options of one load. All of them may be left out.
struct LoadOptions {
    /// The queue on which the completion is called, or the coroutine goes on. Empty: where the service delivers, which
    /// is the delegate queue of the session. Futures and `wait()` ignore it.
    std::optional<DispatchQueue> on{};

    /// How long the load may take as a whole: waiting for a connection, redirects and the body, up to the moment when
    /// decoding begins. A load that takes longer ends with `URLErrorCode::timedOut`. Empty: only the idle time-out of
    /// the request counts. Zero or less ends the load before anything is sent.
    std::optional<std::chrono::duration<double>> deadline{};

    /// Cancels the load when stop is requested; it then ends with `URLErrorCode::cancelled`. A token whose stop was
    /// requested before ends the load before anything is sent.
    std::stop_token stop{};
};

namespace detail {

/// Refers to a `T`, or to none, for the length of one call.
template <class T>
class Borrowed {
public:
    constexpr Borrowed() noexcept = default;
    constexpr Borrowed(const T& lent) noexcept : lent_(&lent) {}
    constexpr Borrowed(const std::optional<T>& lent) noexcept : lent_(lent ? &*lent : nullptr) {}

    constexpr const T* get() const noexcept { return lent_; }

private:
    const T* lent_ = nullptr;
};

}  // namespace detail

/// `LoadOptions` as they are written inside a `co_await` expression: the same fields, which refer to their values until
/// the call returns. Write them in braces, in place; keep `LoadOptions` where options are to be stored.
///
/// GCC 12 destroys the fields of braced arguments inside a `co_await` expression twice. These fields have nothing to
/// destroy, so `co_await resource->value({.deadline = 5s})` is safe there.
struct AwaitOptions {
    /// The queue to deliver on; left out, the delivery queue of the service.
    detail::Borrowed<DispatchQueue> on{};
    /// How long the whole load may take, in seconds; empty for no limit.
    std::optional<std::chrono::duration<double>> deadline{};
    /// A token that cancels the load.
    detail::Borrowed<std::stop_token> stop{};

    /// The same options, with values of their own.
    LoadOptions copied() const {
        LoadOptions options{.deadline = deadline};
        if (on.get() != nullptr) options.on.emplace(*on.get());
        if (stop.get() != nullptr) options.stop = *stop.get();
        return options;
    }
};

}  // namespace VanticRestKit
