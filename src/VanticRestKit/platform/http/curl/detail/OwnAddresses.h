#pragma once

/// \file
/// `OwnAddresses`: detects when this machine loses an address that connections use.

#include <VanticRestKit/platform/http/detail/IdleDeadlines.h>

#include <string>
#include <string_view>
#include <vector>

namespace VanticRestKit::detail {

/// The local addresses of connections.
///
/// When the network changes, the machine gets another address. A connection from the old address is dead, but nothing
/// reports that: the system keeps retransmitting for many minutes. For one thread.
class OwnAddresses {
public:
    /// Records the local address of a connection. Loopback addresses are never lost and are not recorded.
    void note(std::string_view address);

    /// The recorded addresses that this machine no longer has; each is returned once. Checks at most once per
    /// millisecond, so that many loads at once cost one check.
    std::vector<std::string> takeLost(TimePoint now);

private:
    std::vector<std::string> noted_;
    TimePoint lastLook_{};
};

}  // namespace VanticRestKit::detail
