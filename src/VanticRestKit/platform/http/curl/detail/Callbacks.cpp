#include <VanticRestKit/platform/http/curl/detail/Callbacks.h>
#include <VanticRestKit/platform/http/curl/detail/Exchange.h>

#include <cerrno>
#include <cstddef>
#include <string_view>
#include <utility>

namespace VanticRestKit::detail {

namespace {

Attempt& attemptOf(void* user) { return *static_cast<EasyHandle*>(user)->attempt; }

// Each of the following two ends the request by returning less than it was given; the second can also pause it.
std::size_t onHeaderLine(char* bytes, std::size_t size, std::size_t count, void* user) {
    Attempt& attempt = attemptOf(user);
    attempt.received();
    attempt.head.add(std::string_view(bytes, size * count));
    if (attempt.head.fault()) {
        attempt.fault = attempt.head.fault();
        return 0;
    }
    if (attempt.head.isComplete() && !attempt.hasHead) attempt.readHead();
    return size * count;
}

std::size_t onBody(char* bytes, std::size_t size, std::size_t count, void* user) {
    Attempt& attempt = attemptOf(user);
    attempt.received();
    const std::string_view piece(bytes, size * count);
    if (attempt.isRedirect) return attempt.drain(piece.size()) ? piece.size() : 0;
    if (attempt.hasUnknownCoding) {
        attempt.fault = TransportFault{URLErrorCode::cannotDecodeRawData,
                                       "The content coding of the body is not supported."};
        return 0;
    }
    const std::size_t taken = attempt.surroundings.pacer.take(attempt, piece);
    // After a pause, libcurl passes the same piece again.
    if (taken == piece.size()) {
        Transfer& transfer = *attempt.exchange.transfer();
        transfer.progress.received += static_cast<std::int64_t>(taken);
        transfer.moved(attempt.surroundings.now);
    }
    return taken;
}

// Only for uploads: the callbacks above count received data.
int onProgress(void* user, curl_off_t, curl_off_t, curl_off_t, curl_off_t uploaded) {
    Attempt& attempt = attemptOf(user);
    if (uploaded == attempt.uploaded) return 0;
    attempt.moved();
    attempt.uploaded = uploaded;
    attempt.exchange.transfer()->progress.sent = uploaded;
    attempt.exchange.transfer()->moved(attempt.surroundings.now);
    return 0;
}

int onReadyToSend(void* user, char* remoteAddress, char* localAddress, int remotePort, int localPort) {
    Attempt& attempt = attemptOf(user);
    auto connection =
        attempt.surroundings.connections.find({remoteAddress, localAddress, remotePort, localPort});
    if (connection) connection->isReady = true;
    if (localAddress != nullptr) attempt.surroundings.ownAddresses.note(localAddress);
    if (attempt.timesSent > 0 && attempt.exchange.request().httpMethod() != "GET") {
        attempt.fault = TransportFault{URLErrorCode::networkConnectionLost,
                                       "The connection was already dead, and only a GET may be sent again."};
        return CURL_PREREQFUNC_ABORT;
    }
    ++attempt.timesSent;
    attempt.moved();
    attempt.surroundings.admission.endLookup(attempt.exchange);
    if (attempt.connection) --attempt.connection->streams;
    attempt.connection = std::move(connection);
    if (attempt.connection) {
        ++attempt.connection->streams;
        ++attempt.connection->requestsSent;
    }
    // A request on a suspect connection is not counted by the admission; one that libcurl moves to another connection
    // is counted again.
    attempt.surroundings.admission.setAside(attempt.exchange,
                                            attempt.connection && attempt.connection->isSuspect);
    return CURL_PREREQFUNC_OK;
}

curl_socket_t onOpenSocket(void* user, curlsocktype, curl_sockaddr* address) {
    Attempt& attempt = attemptOf(user);
    attempt.surroundings.admission.learnAddress(attempt.exchange,
                                                attempt.surroundings.now + attempt.addressCacheTime);
    attempt.openedSocket =
        attempt.surroundings.connections.open(address->family, address->socktype, address->protocol);
    if (attempt.openedSocket < 0) attempt.socketError = errno;
    if (auto connection = attempt.surroundings.connections.find(attempt.openedSocket)) {
        if (!attempt.exchange.usesFullConnectTime) {
            connection->giveUpAt = attempt.surroundings.now + attempt.exchange.connectLimit();
        }
        attempt.opened.push_back(connection);
        attempt.surroundings.pendingConnects.add(std::move(connection));
    }
    return attempt.openedSocket;
}

// A connection outlives the request that opened it, so this callback gets the `Connections` instead of a handle.
int onCloseSocket(void* user, curl_socket_t socket) { return static_cast<Connections*>(user)->close(socket); }

}  // namespace

void setCallbacks(Options& options, EasyHandle& handle, Connections& connections) {
    options.set(CURLOPT_HEADERFUNCTION, &onHeaderLine);
    options.set(CURLOPT_HEADERDATA, &handle);
    options.set(CURLOPT_WRITEFUNCTION, &onBody);
    options.set(CURLOPT_WRITEDATA, &handle);
    options.set(CURLOPT_XFERINFOFUNCTION, &onProgress);
    options.set(CURLOPT_XFERINFODATA, &handle);
    options.set(CURLOPT_PREREQFUNCTION, &onReadyToSend);
    options.set(CURLOPT_PREREQDATA, &handle);
    options.set(CURLOPT_OPENSOCKETFUNCTION, &onOpenSocket);
    options.set(CURLOPT_OPENSOCKETDATA, &handle);
    options.set(CURLOPT_CLOSESOCKETFUNCTION, &onCloseSocket);
    options.set(CURLOPT_CLOSESOCKETDATA, &connections);
}

}  // namespace VanticRestKit::detail
