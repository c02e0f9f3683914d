#include <VanticRestKit/platform/http/curl/detail/PendingConnects.h>

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <algorithm>

namespace VanticRestKit::detail {

namespace {

enum class Progress { connecting, connected, failed };

Progress progressOf(const Connection& connection) {
#if defined(TCP_INFO)
    tcp_info info{};
    socklen_t size = sizeof(info);
    if (getsockopt(connection.socket, IPPROTO_TCP, TCP_INFO, &info, &size) != 0) return Progress::connected;
    if (info.tcpi_state == TCP_SYN_SENT) return Progress::connecting;
    return info.tcpi_state == TCP_CLOSE ? Progress::failed : Progress::connected;
#else
    static_cast<void>(connection);
    return Progress::connected;
#endif
}

}  // namespace

bool PendingConnects::update(TimePoint now) {
    bool hasChanged = false;
    std::erase_if(pending_, [now, &hasChanged](Pending& each) {
        Connection& connection = *each.connection;
        // If closed, libcurl tries the next address in the following round.
        const bool isClosed = connection.socket < 0;
        const Progress progress = isClosed || each.hasFailed ? Progress::failed : progressOf(connection);
        if (progress == Progress::connecting && now < connection.giveUpAt) return false;
        hasChanged |= isClosed || !each.hasFailed;
        if (isClosed || progress == Progress::connected) return true;
        each.hasFailed = true;
        if (progress == Progress::connecting) {
            connection.wasGivenUp = true;
            // Ends the attempt to connect with an error that libcurl sees.
            ::shutdown(connection.socket, SHUT_RDWR);
        }
        return false;
    });
    return hasChanged;
}

void PendingConnects::addTo(std::vector<curl_waitfd>& watched) const {
    for (const Pending& each : pending_) {
        if (each.hasFailed) continue;
        watched.push_back({.fd = each.connection->socket, .events = CURL_WAIT_POLLOUT, .revents = 0});
    }
}

std::optional<TimePoint> PendingConnects::next() const {
    std::optional<TimePoint> first;
    for (const Pending& each : pending_) {
        const TimePoint giveUpAt = each.connection->giveUpAt;
        if (each.hasFailed || giveUpAt == TimePoint::max()) continue;
        first = std::min(first.value_or(giveUpAt), giveUpAt);
    }
    return first;
}

}  // namespace VanticRestKit::detail
