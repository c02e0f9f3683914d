#include "Server.h"

#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/post.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/core/tcp_stream.hpp>
#include <boost/beast/http.hpp>

#include <array>
#include <csignal>

namespace living_room {

using namespace std::chrono_literals;

namespace asio = boost::asio;
namespace beast = boost::beast;
namespace http = beast::http;
using asio::ip::tcp;
using boost::system::error_code;

namespace {

constexpr std::uint32_t maxHeadBytes = 16 * 1024;
constexpr std::uint64_t maxBodyBytes = 4 * 1024;

/// What `ending` returns.
template <class Start>
struct Ending {
    Start start;
    error_code error{};

    bool await_ready() const noexcept { return false; }
    void await_suspend(std::coroutine_handle<> waiting) {
        start([this, waiting](error_code result, auto...) {
            error = result;
            waiting.resume();
        });
    }
    error_code await_resume() const noexcept { return error; }
};

/// Awaits an operation of Asio and gives its error. `start` starts the operation with the handler that it is passed.
template <class Start>
Ending<Start> ending(Start start) {
    return {std::move(start)};
}

using Stream = std::shared_ptr<beast::tcp_stream>;
using Parser = http::request_parser<http::string_body>;

std::string text(beast::string_view view) { return {view.data(), view.size()}; }

/// The request that was read. If it cannot be understood, its `problem` says why.
Request requestOf(const Parser& parser, error_code error) {
    const auto& read = parser.get();
    const bool isTooLarge = error == http::error::header_limit || error == http::error::body_limit;
    Request request;
    request.method = text(read.method_string());
    request.host = text(read[http::field::host]);
    request.origin = text(read[http::field::origin]);
    request.cookies = text(read[http::field::cookie]);
    if (error || !request.read(text(read.target()), read.body())) request.problem = isTooLarge ? 431 : 400;
    return request;
}

/// Requests stop of `gone` if the browser closes the connection while its request is being answered.
void watch(const Stream& stream, const std::stop_source& gone) {
    stream->socket().async_wait(tcp::socket::wait_read, [stream, gone](error_code error) mutable {
        char next = 0;
        if (!error) stream->socket().receive(asio::buffer(&next, 1), tcp::socket::message_peek, error);
        if (error == asio::error::eof || error == asio::error::connection_reset) gone.request_stop();
    });
}

Task<error_code> write(beast::tcp_stream& stream, const Answer& answer, bool isLast) {
    http::response<http::span_body<const char>> response;
    response.result(static_cast<unsigned>(answer.status));
    response.keep_alive(!isLast);
    response.set(http::field::content_type, answer.type);
    for (const auto& [name, value] : answer.headers) response.insert(name, value);
    response.body() = {answer.body.data(), answer.body.size()};
    response.content_length(answer.body.size());
    stream.expires_after(60s);
    co_return co_await ending([&](auto done) { http::async_write(stream, response, std::move(done)); });
}

/// Drops what the browser still sends. If the connection were closed at once, the browser would lose the answer.
Task<> drain(beast::tcp_stream& stream) {
    std::array<char, 4096> dropped{};
    const auto rest = asio::buffer(dropped);
    error_code error;
    stream.socket().shutdown(tcp::socket::shutdown_send, error);
    stream.expires_after(5s);
    while (!error) {
        error = co_await ending([&](auto done) { stream.async_read_some(rest, std::move(done)); });
    }
}

}  // namespace

struct Server::Detached {
    struct promise_type {
        Detached get_return_object() const noexcept { return {}; }
        std::suspend_never initial_suspend() const noexcept { return {}; }
        std::suspend_never final_suspend() const noexcept { return {}; }
        void return_void() const noexcept {}
        [[noreturn]] void unhandled_exception() const noexcept { std::terminate(); }
    };
};

Server::Server(std::uint16_t port)
    : queue_(DispatchQueue::over("living-room", [this](Block block) {
          asio::post(io_, [held = std::move(block)]() mutable { held(); });
      })) {
    error_code error;
    const tcp::endpoint endpoint(asio::ip::address_v4::loopback(), port);
    acceptor_.open(endpoint.protocol(), error);
    acceptor_.set_option(tcp::acceptor::reuse_address(true), error);
    acceptor_.bind(endpoint, error);
    if (!error) acceptor_.listen(asio::socket_base::max_listen_connections, error);
    if (!error) port_ = acceptor_.local_endpoint(error).port();
}

void Server::run(Handler handler) {
    handler_ = std::move(handler);
    accept();
    io_.run();
}

void Server::stop() {
    asio::post(io_, [this] {
        error_code ignored;
        acceptor_.close(ignored);
        signals_.cancel(ignored);
        stopping_.request_stop();
    });
}

void Server::stopOnSignals() {
    signals_.add(SIGINT);
    signals_.add(SIGTERM);
    signals_.async_wait([this](error_code error, int) {
        if (!error) stop();
    });
}

Server::Detached Server::accept() {
    while (acceptor_.is_open()) {
        tcp::socket socket(io_);
        const auto error =
            co_await ending([&](auto done) { acceptor_.async_accept(socket, std::move(done)); });
        if (!error) serve(std::move(socket));
    }
}

Server::Detached Server::serve(tcp::socket socket) {
    const Stream stream = std::make_shared<beast::tcp_stream>(std::move(socket));
    // The loop must not end while a handler waits for another thread.
    const auto work = asio::make_work_guard(io_);
    std::stop_source gone;
    const std::stop_callback onStop(stopping_.get_token(), [&] {
        gone.request_stop();
        stream->close();
    });
    error_code error;
    stream->socket().set_option(tcp::no_delay(true), error);
    // `watch` may look for bytes that have been read meanwhile; it must not wait for others.
    stream->socket().non_blocking(true, error);
    beast::flat_buffer buffer;
    for (bool isLast = false; !isLast && !error && !gone.stop_requested();) {
        Parser parser;
        parser.header_limit(maxHeadBytes);
        parser.body_limit(maxBodyBytes);
        stream->expires_after(60s);
        error =
            co_await ending([&](auto done) { http::async_read(*stream, buffer, parser, std::move(done)); });
        // Nothing was sent: the connection was closed or idle for too long. Any other error is one of the request.
        if (error && !parser.got_some()) break;
        isLast = error || !parser.keep_alive();
        Request request = requestOf(parser, error);
        request.gone = gone.get_token();
        watch(stream, gone);
        const Answer answer = co_await handler_(std::move(request));
        stream->socket().cancel(error);
        error = co_await write(*stream, answer, isLast);
    }
    co_await drain(*stream);
    stream->close();
}

}  // namespace living_room
