#include <VanticRestKit/platform/http/curl/detail/StreamResets.h>

#include <chrono>

namespace VanticRestKit::detail {

namespace {

// Long enough for a request that replaces the cancelled one, as in a search as the user types.
constexpr std::chrono::milliseconds gracePeriod{250};

}  // namespace

void StreamResets::left(const std::shared_ptr<Connection>& connection, Exchange* other, TimePoint now) {
    if (connection->socket < 0) return;
    if (other != nullptr) {
        // Pausing and resuming a stream flushes its connection; the stream itself does not change.
        curl_easy_pause(other->attempt->handle->get(), CURLPAUSE_SEND);
        curl_easy_pause(other->attempt->handle->get(), CURLPAUSE_CONT);
    } else {
        quiet_.push_back({connection, connection->requestsSent, now + gracePeriod});
    }
}

void StreamResets::shutDownQuiet(TimePoint now) {
    std::erase_if(quiet_, [this, now](const Quiet& quiet) {
        if (quiet.due > now) return false;
        const Connection& connection = *quiet.connection;
        if (connection.requestsSent == quiet.requestsSent) connections_.shutDown(connection);
        return true;
    });
}

std::optional<TimePoint> StreamResets::next() const {
    if (quiet_.empty()) return std::nullopt;
    return quiet_.front().due;
}

}  // namespace VanticRestKit::detail
