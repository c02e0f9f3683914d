#pragma once

/// \file
/// `SuspectConnections`: connections that seem dead while requests are still on them.

#include <VanticRestKit/platform/http/curl/detail/Connections.h>
#include <VanticRestKit/platform/http/curl/detail/Exchange.h>
#include <VanticRestKit/platform/http/detail/Admission.h>

#include <functional>
#include <memory>
#include <vector>

namespace VanticRestKit::detail {

/// Decides what to do with a multiplexed connection when one of its requests times out.
///
/// libcurl would keep using it for new requests as long as the system considers it open. So if nothing at all was
/// received on it in that time, it is shut down. If other requests on it still have time, it becomes a suspect first:
/// new requests use other connections, and it is shut down when its last request has ended, unless something is
/// received.
class SuspectConnections {
public:
    /// Calls its argument for each exchange that is on a connection.
    using ForEachOn = std::function<void(const Connection&, const std::function<void(Exchange&)>&)>;

    SuspectConnections(const Connections& connections, Admission& admission, ForEachOn forEachOn);

    /// `exchange` has timed out and is still on its connection.
    void judge(const Exchange& exchange, TimePoint now);

    /// A request has just left `connection`.
    void left(const Connection& connection);

    /// Clears suspects on which something was received, and shuts down those from which libcurl has moved the last
    /// request without reporting it.
    void review();

private:
    struct Suspect {
        std::shared_ptr<Connection> connection;
        TimePoint since;
    };

    void setAside(const Connection& connection, bool aside);

    const Connections& connections_;
    Admission& admission_;
    const ForEachOn forEachOn_;
    std::vector<Suspect> suspects_;
};

}  // namespace VanticRestKit::detail
