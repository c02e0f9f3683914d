#pragma once

/// \file
/// `LoadOptions`: the queue, the deadline and the stop token of a load.

#include <VanticRestKit/platform/dispatch/DispatchQueue.h>
#include <VanticRestKit/platform/http/LoadProgress.h>

#include <chrono>
#include <optional>
#include <stop_token>

namespace VanticRestKit {

/// The options of one load. All are optional.
struct LoadOptions {
    /// The queue on which the completion is called or the coroutine resumes. Empty: the queue on which the service
    /// delivers, which is the session's delegate queue. Ignored by futures and `wait()`.
    std::optional<DispatchQueue> on{};

    /// How long the load may take as a whole: waiting for a connection, redirects and the body, up to the moment when
    /// decoding begins. A load that takes longer ends with `URLErrorCode::timedOut`. Empty: only the idle timeout of
    /// the request applies. Zero or less ends the load before anything is sent.
    std::optional<std::chrono::duration<double>> deadline{};

    /// Cancels the load when stop is requested; it then ends with `URLErrorCode::cancelled`. If stop was already
    /// requested, the load ends before anything is sent.
    std::stop_token stop{};

    /// Receives the progress of the load, on the queue of its completion. Empty: no progress is reported. Supported by
    /// loads of a `Resource` with the library's own services and sessions, but ignored by operations of the user
    /// client. A service that retries reports each attempt from its beginning.
    ProgressReceiver progress{};
};

namespace detail {

/// Refers to a `T`, or to none, for the duration of one call.
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

/// `LoadOptions` for a `co_await` expression: the same fields, which refer to their values until the call returns.
/// Write them in braces in the call; use `LoadOptions` to store options.
///
/// GCC 12 destroys the fields of braced arguments in a `co_await` expression twice. These fields are trivially
/// destructible, so `co_await resource->value({.deadline = 5s})` is safe there.
struct AwaitOptions {
    /// The queue to deliver on. Empty: the delivery queue of the service.
    detail::Borrowed<DispatchQueue> on{};
    /// How long the whole load may take, in seconds; empty for no limit.
    std::optional<std::chrono::duration<double>> deadline{};
    /// A token that cancels the load.
    detail::Borrowed<std::stop_token> stop{};
    /// Receives the progress of the load.
    detail::Borrowed<ProgressReceiver> progress{};

    /// The same options with their own copies of the values.
    LoadOptions copied() const {
        LoadOptions options{.deadline = deadline};
        if (on.get() != nullptr) options.on.emplace(*on.get());
        if (stop.get() != nullptr) options.stop = *stop.get();
        if (progress.get() != nullptr) options.progress = *progress.get();
        return options;
    }
};

}  // namespace VanticRestKit
