#include "Server.h"

#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/signal_set.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/core/tcp_stream.hpp>
#include <boost/beast/http.hpp>

#include <algorithm>
#include <array>
#include <coroutine>
#include <csignal>
#include <exception>
#include <set>

namespace living_room {

using namespace std::chrono_literals;

namespace asio = boost::asio;
namespace beast = boost::beast;
namespace http = beast::http;
using boost::system::error_code;
using tcp = asio::ip::tcp;

namespace {

constexpr std::uint32_t maxHeadBytes = 16 * 1024;
constexpr std::uint64_t maxBodyBytes = 4 * 1024;
/// What is read and dropped of a request that was too large, so that the browser gets to see the answer.
constexpr std::size_t maxDroppedBytes = 4 * 1024 * 1024;

/// A coroutine that no one awaits.
struct Detached {
    struct promise_type {
        Detached get_return_object() const noexcept { return {}; }
        std::suspend_never initial_suspend() const noexcept { return {}; }
        std::suspend_never final_suspend() const noexcept { return {}; }
        void return_void() const noexcept {}
        void unhandled_exception() const noexcept { std::terminate(); }
    };
};

/// Runs `task` to its end; the loop goes on until then.
Detached runToEnd(Task<Answer> task, asio::io_context& loop, std::function<void(Answer)> completion) {
    const auto work = asio::make_work_guard(loop);
    completion(co_await task);
}

std::string_view viewOf(beast::string_view text) { return {text.data(), text.size()}; }

/// Whether `parsed` is a request that the pages can be asked; if so, in `request`.
bool readRequest(const http::request<http::string_body>& parsed, Request& request) {
    request.method = viewOf(parsed.method_string());
    for (const auto& field : parsed) {
        std::string name(viewOf(field.name_string()));
        for (char& c : name) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        request.headers.insert_or_assign(std::move(name), std::string(viewOf(field.value())));
    }
    return readTarget(std::string(viewOf(parsed.target())), request) && readForm(parsed.body(), request);
}

/// One browser's connection. It keeps itself alive by what it waits for.
class Connection final : public std::enable_shared_from_this<Connection> {
public:
    Connection(tcp::socket socket, asio::io_context& loop, const Handler& handler)
        : stream_(std::move(socket)), loop_(loop), handler_(handler) {}

    /// Reads the next request, also while one is being answered: its end tells that the browser has gone.
    void read() {
        parser_.emplace();
        parser_->header_limit(maxHeadBytes);
        parser_->body_limit(maxBodyBytes);
        stream_.expires_after(60s);
        isReading_ = true;
        http::async_read(
            stream_, buffer_, *parser_,
            [self = shared_from_this()](error_code error, std::size_t) { self->readEnded(error); });
    }

    void close() {
        gone_.request_stop();
        stream_.close();
    }

private:
    void readEnded(error_code error) {
        isReading_ = false;
        const bool isOfHttp =
            error.category() == http::make_error_code(http::error::end_of_stream).category();
        const bool isCut = error == http::error::end_of_stream || error == http::error::partial_message;
        if (isCut || (error && !isOfHttp)) {
            gone_.request_stop();
            if (!isAnswering_) close();
        } else if (isLast_ && !isAnswering_) {
            close();
        } else if (isAnswering_) {
            // Answered when the one before it was.
            next_ = error;
        } else {
            answer(error);
        }
    }

    void answer(error_code error) {
        isAnswering_ = true;
        Request request;
        const bool isWhole = !error && readRequest(parser_->get(), request);
        isLast_ = error || !parser_->keep_alive();
        const bool isTooLarge = error == http::error::header_limit || error == http::error::body_limit;
        if (!isWhole) request.problem = isTooLarge ? 431 : 400;
        request.gone = gone_.get_token();
        auto task = handler_(std::move(request));
        // Nothing more can be read if the request was not understood.
        if (!error) read();
        runToEnd(std::move(task), loop_,
                 [self = shared_from_this()](Answer answer) { self->write(std::move(answer)); });
    }

    void write(Answer answer) {
        if (!stream_.socket().is_open()) return;
        answer_ = std::move(answer);
        response_.emplace();
        response_->result(static_cast<unsigned>(answer_.status));
        response_->keep_alive(!isLast_);
        response_->set(http::field::content_type, answer_.type);
        for (const auto& [name, value] : answer_.headers) response_->insert(name, value);
        response_->body() = {answer_.body.data(), answer_.body.size()};
        response_->content_length(answer_.body.size());
        stream_.expires_after(60s);
        http::async_write(stream_, *response_,
                          [self = shared_from_this()](error_code error, std::size_t) { self->wrote(error); });
    }

    void wrote(error_code error) {
        isAnswering_ = false;
        if (error || gone_.stop_requested()) return close();
        if (isLast_) return drop();
        if (next_) answer(*std::exchange(next_, std::nullopt));
    }

    /// Ends the connection after what the browser still sends: closed at once, it would lose the answer.
    void drop() {
        error_code ignored;
        stream_.socket().shutdown(tcp::socket::shutdown_send, ignored);
        if (isReading_) return;  // its end closes the connection
        stream_.expires_after(5s);
        dropMore(maxDroppedBytes);
    }

    void dropMore(std::size_t left) {
        stream_.async_read_some(asio::buffer(dropped_),
                                [self = shared_from_this(), left](error_code error, std::size_t size) {
                                    if (error || size >= left) return self->close();
                                    self->dropMore(left - size);
                                });
    }

    beast::tcp_stream stream_;
    asio::io_context& loop_;
    const Handler& handler_;
    beast::flat_buffer buffer_{};
    std::optional<http::request_parser<http::string_body>> parser_{};
    std::stop_source gone_{};
    bool isReading_ = false;
    bool isAnswering_ = false;
    bool isLast_ = false;
    /// How the reading of the next request ended, if it ended while this one was being answered.
    std::optional<error_code> next_{};
    Answer answer_{};
    std::optional<http::response<http::span_body<const char>>> response_{};
    std::array<char, 4096> dropped_{};
};

}  // namespace

struct Server::Loop {
    asio::io_context io{1};
    tcp::acceptor acceptor{io};
    asio::signal_set signals{io};
    Handler handler{};
    std::set<std::weak_ptr<Connection>, std::owner_less<>> connections{};
    std::uint16_t port = 0;
    DispatchQueue queue = DispatchQueue::over("living-room", [this](Block block) {
        asio::post(io, [held = std::move(block)]() mutable { held(); });
    });

    void accept() {
        acceptor.async_accept([this](error_code error, tcp::socket socket) {
            if (!acceptor.is_open()) return;
            if (!error) {
                socket.set_option(tcp::no_delay(true), error);
                const auto connection = std::make_shared<Connection>(std::move(socket), io, handler);
                std::erase_if(connections, [](const auto& old) { return old.expired(); });
                connections.insert(connection);
                connection->read();
            }
            accept();
        });
    }

    void stop() {
        error_code ignored;
        acceptor.close(ignored);
        signals.cancel(ignored);
        for (const auto& weak : connections) {
            if (const auto connection = weak.lock()) connection->close();
        }
    }
};

Server::Server(std::uint16_t port) : loop_(std::make_unique<Loop>()) {
    error_code error;
    const tcp::endpoint endpoint(asio::ip::address_v4::loopback(), port);
    loop_->acceptor.open(endpoint.protocol(), error);
    loop_->acceptor.set_option(tcp::acceptor::reuse_address(true), error);
    loop_->acceptor.bind(endpoint, error);
    if (!error) loop_->acceptor.listen(asio::socket_base::max_listen_connections, error);
    if (!error) loop_->port = loop_->acceptor.local_endpoint(error).port();
}

Server::~Server() = default;

std::uint16_t Server::port() const noexcept { return loop_->port; }
const DispatchQueue& Server::queue() const noexcept { return loop_->queue; }

void Server::run(Handler handler) {
    loop_->handler = std::move(handler);
    loop_->accept();
    loop_->io.run();
}

void Server::stop() {
    asio::post(loop_->io, [loop = loop_.get()] { loop->stop(); });
}

void Server::stopOnSignals() {
    loop_->signals.add(SIGINT);
    loop_->signals.add(SIGTERM);
    loop_->signals.async_wait([loop = loop_.get()](error_code error, int) {
        if (!error) loop->stop();
    });
}

}  // namespace living_room
