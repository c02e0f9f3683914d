#pragma once

/// \file
/// `WakeDescriptor`: lets another thread end a wait for sockets.

#include <sys/eventfd.h>
#include <unistd.h>
#include <cerrno>
#include <cstdint>

namespace VanticRestKit::detail {

/// A descriptor that becomes readable when it is signalled. Used instead of libcurl's own, which reports neither
/// whether it could be made nor whether it works, and which child processes inherit.
class WakeDescriptor {
public:
    WakeDescriptor() = default;
    WakeDescriptor(const WakeDescriptor&) = delete;
    WakeDescriptor& operator=(const WakeDescriptor&) = delete;
    ~WakeDescriptor() {
        if (descriptor_ >= 0) close(descriptor_);
    }

    /// Makes the descriptor if there is none yet. Returns whether there is one.
    bool make() noexcept {
        if (descriptor_ < 0) descriptor_ = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
        return descriptor_ >= 0;
    }

    int descriptor() const noexcept { return descriptor_; }

    void signal() noexcept {
        const std::uint64_t one = 1;
        while (write(descriptor_, &one, sizeof(one)) < 0 && errno == EINTR) {
        }
    }

    /// Clears the signal.
    void clear() noexcept {
        std::uint64_t count = 0;
        while (read(descriptor_, &count, sizeof(count)) < 0 && errno == EINTR) {
        }
    }

private:
    int descriptor_ = -1;
};

}  // namespace VanticRestKit::detail
