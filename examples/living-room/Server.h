#pragma once

// The HTTP server of the host: loopback only, one thread, any number of browsers.

#include "Http.h"

#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/signal_set.hpp>

#include <functional>

namespace living_room {

/// Answers one request, on the loop of the server. It must not throw.
using Handler = std::function<Task<Answer>(Request)>;

/// Serves HTTP/1.1 on 127.0.0.1. Everything happens on the thread that calls `run`: reading, the handler's coroutines,
/// which resume through `queue`, and writing.
///
/// When a browser goes away while its request is being answered, stop is requested of `Request::gone`, which ends the
/// loads of the handler.
class Server {
public:
    /// Listens on `port`, or on any free one if it is 0.
    explicit Server(std::uint16_t port);

    /// 0 if the port is not available.
    std::uint16_t port() const noexcept { return port_; }
    /// Runs blocks on the loop. Valid as long as the server.
    const DispatchQueue& queue() const noexcept { return queue_; }

    /// Serves until `stop` was called and the handlers in progress have ended.
    void run(Handler handler);
    /// Ends `run`: closes all connections, which cancels what is being loaded for them. Any thread.
    void stop();
    /// Stops when the process is told to end (SIGINT, SIGTERM).
    void stopOnSignals();

private:
    /// A coroutine that runs to its end by itself; nothing awaits it.
    struct Detached;

    Detached accept();
    /// Answers the requests of one connection, one after the other.
    Detached serve(boost::asio::ip::tcp::socket socket);

    boost::asio::io_context io_{1};
    boost::asio::ip::tcp::acceptor acceptor_{io_};
    boost::asio::signal_set signals_{io_};
    std::stop_source stopping_{};
    Handler handler_{};
    std::uint16_t port_ = 0;
    DispatchQueue queue_;
};

}  // namespace living_room
