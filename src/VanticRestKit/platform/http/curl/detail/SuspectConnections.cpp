#include <VanticRestKit/platform/http/curl/detail/SuspectConnections.h>

#include <algorithm>
#include <utility>

namespace VanticRestKit::detail {

SuspectConnections::SuspectConnections(const Connections& connections, Admission& admission,
                                       ForEachOn forEachOn)
    : connections_(connections), admission_(admission), forEachOn_(std::move(forEachOn)) {}

void SuspectConnections::setAside(const Connection& connection, bool aside) {
    forEachOn_(connection, [this, aside](Exchange& exchange) { admission_.setAside(exchange, aside); });
}

void SuspectConnections::judge(const Exchange& exchange, TimePoint now) {
    const auto& connection = exchange.attempt->connection;
    if (!connection || connection->isSuspect) return;
    if (connection->lastMoved + exchange.interval() > now) return;
    if (connection->streams <= 1) {
        connections_.shutDown(*connection);
        return;
    }
    connection->isSuspect = true;
    suspects_.push_back({connection, now});
    setAside(*connection, true);
}

void SuspectConnections::left(const Connection& connection) {
    if (!connection.isSuspect || connection.streams > 0) return;
    connections_.shutDown(connection);
    std::erase_if(suspects_, [&](const Suspect& suspect) { return suspect.connection.get() == &connection; });
}

void SuspectConnections::review() {
    std::erase_if(suspects_, [this](const Suspect& suspect) {
        Connection& connection = *suspect.connection;
        if (connection.socket < 0) return true;
        if (connection.streams == 0) {
            connections_.shutDown(connection);
            return true;
        }
        if (connection.lastMoved <= suspect.since) return false;
        connection.isSuspect = false;
        setAside(connection, false);
        return true;
    });
}

}  // namespace VanticRestKit::detail
