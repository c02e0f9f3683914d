#pragma once

/// \file
/// `FaultServer`: a server on loopback whose script controls the socket directly, to simulate faults.

#include "Certificates.h"
#include "Sockets.h"

#include <openssl/ssl.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace VanticRestKit::test {

/// A request as it was received.
struct RawRequest {
    std::string method{};
    /// The part between method and version.
    std::string target{};
    /// Names in lower case. The values of a repeated name are joined by ", ".
    std::map<std::string, std::string> headers{};
    std::string body{};
    /// The index of its connection, counted from 0.
    std::size_t connection = 0;

    bool has(const std::string& name) const { return headers.contains(name); }
    /// The value of a header, empty if there is none.
    std::string header(const std::string& name) const {
        const auto found = headers.find(name);
        return found == headers.end() ? std::string() : found->second;
    }
};

class FaultServer;

/// One connection of a `FaultServer`, controlled by the script. Data is sent without delay.
class FaultConnection {
public:
    /// Counted from 0, in the order in which they were accepted.
    std::size_t index() const noexcept { return index_; }

    /// The next request, or nothing if the client has closed the connection or the server stops.
    std::optional<RawRequest> readRequest();

    /// Reads the head of a request but not its body.
    std::optional<RawRequest> readHead();

    /// Sends the bytes. Returns whether the client is still connected.
    bool send(std::string_view bytes);

    /// Sends the bytes one by one with a `pause` between them.
    bool trickle(std::string_view bytes, std::chrono::milliseconds pause);

    /// Reads `size` bytes in pieces of `piece` bytes with a `pause` between them.
    bool readSlowly(std::size_t size, std::size_t piece, std::chrono::milliseconds pause);

    /// Waits until the client closes the connection, without sending anything. Returns false if the server stops first.
    bool stall();

    /// Neither reads nor sends anything until the server stops.
    void ignore();

    /// Closes the connection with a reset.
    void reset();

    /// Forwards bytes between the client and a port of loopback until one of them closes.
    void relayTo(std::uint16_t port);

    /// Waits for `time`, or until the server stops.
    void pace(std::chrono::milliseconds time);

private:
    friend class FaultServer;

    FaultConnection(FaultServer& server, std::size_t index, Socket socket);
    bool readMore();
    bool startTls();
    void closeInOrder();
    /// Reads at most `capacity` bytes; 0 at the end.
    std::size_t receive(char* bytes, std::size_t capacity);

    struct SslDeleter {
        void operator()(SSL* ssl) const { SSL_free(ssl); }
    };

    FaultServer& server_;
    const std::size_t index_;
    Socket socket_;
    std::unique_ptr<SSL, SslDeleter> ssl_;
    std::string unread_;
};

/// Accepts connections on a port of loopback and runs a script for each on a separate thread. The connection is closed
/// normally when its script returns. The destructor ends all scripts.
class FaultServer {
public:
    using Script = std::function<void(FaultConnection&)>;

    /// With an identity the server speaks TLS (and HTTP/1.1 only).
    explicit FaultServer(Script script, const Identity* identity = nullptr, Loopback loopback = Loopback::v4);
    ~FaultServer();
    FaultServer(const FaultServer&) = delete;
    FaultServer& operator=(const FaultServer&) = delete;

    std::uint16_t port() const noexcept { return port_; }
    /// Its TLS context, which may be changed before the first connection. Null without TLS.
    SSL_CTX* tls() const noexcept { return tls_.get(); }
    /// The URL of `path`, which must begin with a slash.
    std::string url(const std::string& path = "/") const;

    /// All requests read so far, in the order of their reading.
    std::vector<RawRequest> requests() const;
    std::size_t connectionCount() const;

    /// These wait for at most half a minute and return whether the condition became true.
    [[nodiscard]] bool waitForRequests(std::size_t count) const;
    [[nodiscard]] bool waitForClosedByClient(std::size_t count) const;
    /// Waits until `count` scripts have returned and their connections are closed.
    [[nodiscard]] bool waitForEnded(std::size_t count) const;

    /// Ends all waits in `hold`.
    void releaseHeld();
    /// Called by a script: waits for `releaseHeld`. Returns false if the server stops.
    bool hold();

private:
    friend class FaultConnection;

    void accept();
    void note(const RawRequest& request);
    void noteClosedByClient();
    bool isStopping() const;
    void forget(int socket);

    const Script script_;
    const bool isSecure_;
    const Loopback loopback_;
    std::unique_ptr<SSL_CTX, void (*)(SSL_CTX*)> tls_;
    Socket listener_;
    std::uint16_t port_ = 0;

    mutable std::mutex mutex_;
    mutable std::condition_variable changed_;
    std::vector<RawRequest> requests_;
    std::size_t connections_ = 0;
    std::size_t closedByClient_ = 0;
    std::size_t ended_ = 0;
    bool isReleased_ = false;
    bool isStopping_ = false;
    std::set<int> sockets_;
    std::vector<std::thread> threads_;
    std::thread acceptor_;
};

/// A complete response with a Content-Length. `headers` are lines that each end with a line break.
std::string answer(int status, std::string_view body, std::string_view headers = {});

/// A script that answers every request on a connection with `reply`.
FaultServer::Script always(std::string reply);

}  // namespace VanticRestKit::test
