#pragma once

/// \file
/// `OwnAddresses`: whether this machine still has the addresses that connections began from.

#include <VanticRestKit/platform/http/detail/IdleDeadlines.h>

#include <string>
#include <string_view>
#include <vector>

namespace VanticRestKit::detail {

/// The addresses of this machine from which connections went out.
///
/// When a network goes and another one comes, the machine has another address. A connection from the old one is dead
/// without an end that anything could see: the system goes on sending to it for many minutes. For one thread.
class OwnAddresses {
public:
    /// A connection goes out from `address`. Those of loopback stay for ever and are not noted.
    void note(std::string_view address);

    /// The noted addresses that this machine has no more; each is told once. Looks no more often than each
    /// millisecond, so that many loads at once cost one look.
    std::vector<std::string> takeLost(TimePoint now);

private:
    std::vector<std::string> noted_;
    TimePoint lastLook_{};
};

}  // namespace VanticRestKit::detail
