#pragma once

/// \file
/// How the library starts its threads.

#include <VanticRestKit/platform/dispatch/UniqueFunction.h>

#include <string_view>

namespace VanticRestKit::detail {

/// Runs `body` on a new thread that is never joined. The host's signals are not handled there: all that are not
/// faults of the thread itself are blocked, except while a `HostSignals` lives. Debuggers show the last 15 bytes of
/// `name`.
///
/// Returns false where the system gives no thread; `body` is destroyed then.
bool startThread(std::string_view name, Block body);

/// For the time of its life, the calling thread of the library has the signal mask that the host would expect: that
/// of the host's thread for which it was started. Lives around everything of the host's that a library thread runs,
/// because a process started there inherits the mask. Does nothing on a thread of the host's.
class HostSignals {
public:
    HostSignals() noexcept;
    HostSignals(const HostSignals&) = delete;
    HostSignals& operator=(const HostSignals&) = delete;
    ~HostSignals();
};

}  // namespace VanticRestKit::detail
