#pragma once

/// \file
/// How the library starts its threads.

#include <VanticRestKit/platform/dispatch/UniqueFunction.h>

#include <cstddef>
#include <string_view>

namespace VanticRestKit::detail {

/// Runs `body` on a new detached thread. It handles no signals of the host: all except faults of the thread itself are
/// blocked, unless a `HostSignals` exists. Debuggers show the last 15 bytes of `name`.
///
/// Returns false if the system has no thread; `body` is then destroyed.
bool startThread(std::string_view name, Block body);

/// Sets the stack size, in bytes, of the threads that are started from now on; 0 for the default of the C library. Any
/// thread may call.
void setThreadStackSize(std::size_t bytes) noexcept;

/// While it exists, the calling library thread has the signal mask that the host expects: that of the host thread for
/// which it was started. Used around all host code that a library thread runs, because a process started there inherits
/// the mask. Does nothing on the host's own threads.
class HostSignals {
public:
    HostSignals() noexcept;
    HostSignals(const HostSignals&) = delete;
    HostSignals& operator=(const HostSignals&) = delete;
    ~HostSignals();
};

}  // namespace VanticRestKit::detail
