#pragma once

// The HTTP server of the host: loopback only, one thread, any number of browsers.

#include "Http.h"

#include <cstdint>
#include <functional>

namespace living_room {

/// Answers one request. It runs on the loop of the server; it may throw nothing.
using Handler = std::function<Task<Answer>(Request)>;

/// Serves HTTP/1.1 on 127.0.0.1. Everything happens on the thread that calls `run`: reading, the handler's coroutines,
/// which go on through `queue`, and writing.
///
/// While a request is being answered the server reads on. So it notices at once when the browser goes away, and
/// requests stop of `Request::gone`; the loads of the handler end with it.
class Server {
public:
    /// Listens on `port`, or on any free one if it is 0.
    explicit Server(std::uint16_t port);
    ~Server();
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    /// 0 if the port could not be had.
    std::uint16_t port() const noexcept;
    /// Runs blocks on the loop. Valid as long as the server.
    const DispatchQueue& queue() const noexcept;

    /// Serves until `stop` was called and the handlers under way have ended.
    void run(Handler handler);
    /// Ends `run`: closes all connections, which cancels what is being loaded for them. Any thread.
    void stop();
    /// Stops when the process is told to end (SIGINT, SIGTERM).
    void stopOnSignals();

private:
    struct Loop;
    std::unique_ptr<Loop> loop_;
};

}  // namespace living_room
