#pragma once

/// \file
/// `FaultServer`: a server on loopback that does with its sockets what no proper server does.

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

/// A request as it came over the wire.
struct RawRequest {
    std::string method{};
    /// What stands between method and version.
    std::string target{};
    /// Names in lower case; the values of one that came more than once are joined by ", ".
    std::map<std::string, std::string> headers{};
    std::string body{};
    /// Which connection it came on, counted from 0.
    std::size_t connection = 0;

    bool has(const std::string& name) const { return headers.contains(name); }
    /// The value of a header; an empty text where there is none.
    std::string header(const std::string& name) const {
        const auto found = headers.find(name);
        return found == headers.end() ? std::string() : found->second;
    }
};

class FaultServer;

/// One connection of a `FaultServer`, in the hands of the script. What it sends goes out at once.
class FaultConnection {
public:
    /// Counted from 0, in the order in which they were accepted.
    std::size_t index() const noexcept { return index_; }

    /// The next request; empty when the client has closed the connection, or the server stops.
    std::optional<RawRequest> readRequest();

    /// Reads the head of a request and leaves its body where it is.
    std::optional<RawRequest> readHead();

    /// Sends bytes as they are. Returns whether the client is still there.
    bool send(std::string_view bytes);

    /// Sends bytes one by one, `pause` between two of them.
    bool trickle(std::string_view bytes, std::chrono::milliseconds pause);

    /// Reads `size` bytes, a `piece` at a time, `pause` between two of them.
    bool readSlowly(std::size_t size, std::size_t piece, std::chrono::milliseconds pause);

    /// Waits, without a word, until the client has closed the connection. Whether it did before the server
    /// stopped.
    bool stall();

    /// Reads nothing and says nothing for as long as the server is there.
    void ignore();

    /// Closes the connection with a reset.
    void reset();

    /// Hands bytes on between the client and a port of loopback until one of the two closes.
    void relayTo(std::uint16_t port);

    /// Waits for `time`, less if the server stops.
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

/// Accepts connections on a port of loopback and has each handled by a script in a thread of its own. When
/// the script returns the connection is closed in good order. Its destructor ends every script.
class FaultServer {
public:
    using Script = std::function<void(FaultConnection&)>;

    /// With an identity the server speaks TLS (and HTTP/1.1 only).
    explicit FaultServer(Script script, const Identity* identity = nullptr, Loopback loopback = Loopback::v4);
    ~FaultServer();
    FaultServer(const FaultServer&) = delete;
    FaultServer& operator=(const FaultServer&) = delete;

    std::uint16_t port() const noexcept { return port_; }
    /// How it speaks TLS, to be changed before the first connection; null if it does not.
    SSL_CTX* tls() const noexcept { return tls_.get(); }
    /// The URL of `path`, which begins with a slash.
    std::string url(const std::string& path = "/") const;

    /// All requests read so far, in the order of their reading.
    std::vector<RawRequest> requests() const;
    std::size_t connectionCount() const;

    /// Wait for up to half a minute; whether it came to pass.
    [[nodiscard]] bool waitForRequests(std::size_t count) const;
    [[nodiscard]] bool waitForClosedByClient(std::size_t count) const;
    /// So many scripts have returned and their connections are closed.
    [[nodiscard]] bool waitForEnded(std::size_t count) const;

    /// Lets go everything that waits in `hold`.
    void releaseHeld();
    /// Waits for `releaseHeld`, to be called by a script. False if the server stops.
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

/// A whole answer with a Content-Length. `headers` are lines, each with its line end.
std::string answer(int status, std::string_view body, std::string_view headers = {});

/// A script that answers every request on a connection with `reply`.
FaultServer::Script always(std::string reply);

}  // namespace VanticRestKit::test
