#pragma once

/// \file
/// `SuspectConnections`: connections that seem to be dead while requests are still on them.

#include <VanticRestKit/platform/http/curl/detail/Connections.h>
#include <VanticRestKit/platform/http/curl/detail/Exchange.h>
#include <VanticRestKit/platform/http/detail/Admission.h>

#include <functional>
#include <memory>
#include <vector>

namespace VanticRestKit::detail {

/// Judges a connection that carries several requests when one of them ran out of time.
///
/// libcurl would put the next request on it again, and the next, for as long as the system believes in it. So
/// when nothing at all has moved on it in that time it is shut down. If other requests are on it that still
/// have time, it becomes a suspect first: new requests go elsewhere, those on it keep their chance, and it is
/// shut down when the last one has gone, unless something moves.
class SuspectConnections {
public:
    /// Calls its argument for each exchange that is on a connection.
    using ForEachOn = std::function<void(const Connection&, const std::function<void(Exchange&)>&)>;

    SuspectConnections(const Connections& connections, Admission& admission, ForEachOn forEachOn);

    /// `exchange` ran out of time and is still on its connection.
    void judge(const Exchange& exchange, TimePoint now);

    /// `exchange` has just left `connection`.
    void left(const Connection& connection);

    /// Clears the suspects on which something has moved, and shuts down those that libcurl has moved the last
    /// request away from without a word.
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
