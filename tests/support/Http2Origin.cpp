#include "Http2Origin.h"

#include "PlainOrigin.h"

#include <openssl/err.h>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/epoll.h>
#include <sys/socket.h>
#include <array>
#include <cstring>
#include <deque>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

namespace VanticRestKit::test {

namespace {

constexpr std::size_t frameHead = 9;
constexpr std::size_t largestFrame = 16384;
constexpr std::string_view preface = "PRI * HTTP/2.0\r\n\r\nSM\r\n\r\n";

enum FrameType : unsigned char {
    data = 0,
    headers = 1,
    reset = 3,
    settings = 4,
    ping = 6,
    goAway = 7,
    window = 8
};
enum ErrorNumber : std::uint32_t { noError = 0, internalError = 2, refusedStream = 7 };
constexpr unsigned char endStream = 1;
constexpr unsigned char endHeaders = 4;
constexpr unsigned char acknowledged = 1;

std::string fourBytes(std::uint32_t number) {
    const std::uint32_t ordered = htonl(number);
    std::string bytes(sizeof(ordered), '\0');
    std::memcpy(bytes.data(), &ordered, sizeof(ordered));
    return bytes;
}

std::uint32_t readNumber(std::string_view bytes) {
    std::uint32_t ordered = 0;
    if (bytes.size() >= sizeof(ordered)) std::memcpy(&ordered, bytes.data(), sizeof(ordered));
    return ntohl(ordered);
}

std::string frame(FrameType type, unsigned char flags, std::uint32_t stream, std::string_view payload) {
    // The length has three bytes.
    std::string made = fourBytes(static_cast<std::uint32_t>(payload.size())).substr(1);
    made += static_cast<char>(type);
    made += static_cast<char>(flags);
    return made.append(fourBytes(stream)).append(payload);
}

/// ":status: 200" and the length, encoded so that the HPACK table does not change.
std::string headOfAnswer(std::size_t size) {
    const std::string length = std::to_string(size);
    return std::string("\x88\x0f\x0d") + static_cast<char>(length.size()) + length;
}

/// The target in a header block, where it is not Huffman-coded. Empty if there is none.
std::string targetIn(std::string_view block) {
    const auto at = block.find("/~~~~");
    if (at == std::string_view::npos || at == 0) return {};
    return std::string(block.substr(at, static_cast<unsigned char>(block[at - 1]) & 0x7fU));
}

int chooseProtocol(SSL*, const unsigned char** chosen, unsigned char* size, const unsigned char* offered,
                   unsigned int offeredSize, void*) {
    static constexpr std::array<unsigned char, 3> h2{2, 'h', '2'};
    unsigned char* found = nullptr;
    if (SSL_select_next_proto(&found, size, h2.data(), h2.size(), offered, offeredSize) !=
        OPENSSL_NPN_NEGOTIATED) {
        return SSL_TLSEXT_ERR_ALERT_FATAL;
    }
    *chosen = found;
    return SSL_TLSEXT_ERR_OK;
}

SSL_CTX* contextFor(const Identity& identity) {
    SSL_CTX* const context = SSL_CTX_new(TLS_server_method());
    SSL_CTX_use_certificate(context, identity.certificate.get());
    SSL_CTX_use_PrivateKey(context, identity.key.get());
    SSL_CTX_set_alpn_select_cb(context, &chooseProtocol, nullptr);
    // Disables session resumption, which would skip the check of a changed certificate.
    SSL_CTX_set_session_cache_mode(context, SSL_SESS_CACHE_OFF);
    SSL_CTX_set_options(context, SSL_OP_NO_TICKET);
    SSL_CTX_set_num_tickets(context, 0);
    SSL_CTX_set_mode(context, SSL_MODE_ENABLE_PARTIAL_WRITE | SSL_MODE_ACCEPT_MOVING_WRITE_BUFFER);
    return context;
}

}  // namespace

class Http2Origin::Connection : public std::enable_shared_from_this<Connection> {
public:
    Connection(Http2Origin& origin, Socket socket, SSL_CTX* context)
        : origin_(origin), socket_(std::move(socket)), ssl_(SSL_new(context), &SSL_free) {
        SSL_set_fd(ssl_.get(), socket_.descriptor());
        SSL_set_accept_state(ssl_.get());
    }

    void start() {
        out_ = frame(settings, 0, 0, std::string("\0\x03", 2) + fourBytes(origin_.conduct_.maxStreams));
        origin_.reactor_.watch(socket_.descriptor(), EPOLLIN,
                               [self = shared_from_this()](std::uint32_t) { self->isReady(); });
    }

private:
    void isReady() {
        if (!socket_) return;
        std::array<char, 16 * 1024> bytes;
        while (true) {
            ERR_clear_error();
            const int count = SSL_read(ssl_.get(), bytes.data(), static_cast<int>(bytes.size()));
            if (count > 0) {
                in_.append(bytes.data(), static_cast<std::size_t>(count));
                continue;
            }
            const int error = SSL_get_error(ssl_.get(), count);
            if (error != SSL_ERROR_WANT_READ && error != SSL_ERROR_WANT_WRITE) return close();
            break;
        }
        if (!hasPreface_ && in_.size() >= preface.size()) {
            in_.erase(0, preface.size());
            hasPreface_ = true;
        }
        while (hasPreface_ && readFrame()) {
        }
        flush();
    }

    bool readFrame() {
        if (in_.size() < frameHead) return false;
        const std::size_t size = readNumber(std::string(1, '\0') + in_.substr(0, 3));
        if (in_.size() < frameHead + size) return false;
        const auto type = static_cast<unsigned char>(in_[3]);
        const auto flags = static_cast<unsigned char>(in_[4]);
        const std::uint32_t stream = readNumber(std::string_view(in_).substr(5)) & 0x7fffffffU;
        const std::string payload = in_.substr(frameHead, size);
        in_.erase(0, frameHead + size);
        switch (type) {
            case headers: begin(stream, payload); break;
            case reset: open_.erase(stream); break;
            case settings:
                if ((flags & acknowledged) == 0) out_ += frame(settings, acknowledged, 0, {});
                break;
            case ping:
                if ((flags & acknowledged) == 0) out_ += frame(ping, acknowledged, 0, payload);
                break;
            case window:
                if (stream == 0) window_ += readNumber(payload);
                break;
            default: break;
        }
        return true;
    }

    void begin(std::uint32_t stream, const std::string& block) {
        const Http2Conduct& conduct = origin_.conduct_;
        // The client knows that no more streams are accepted.
        if (isGoingAway_) return;
        if (origin_.happens(conduct.goAways)) {
            goAway(stream);
        } else if (origin_.happens(conduct.goAwaysWithoutLast)) {
            goAway(stream >= 2 ? stream - 2 : 0);
            return;
        }
        if (origin_.happens(conduct.refusals)) {
            ++origin_.faults_;
            out_ += frame(reset, 0, stream, fourBytes(refusedStream));
            return;
        }
        open_.insert(stream);
        const auto wait =
            std::chrono::milliseconds(origin_.random(static_cast<std::size_t>(conduct.longestWait.count())));
        const std::string target = targetIn(block);
        if (wait.count() == 0) return answer(stream, target);
        origin_.reactor_.after(wait, [self = shared_from_this(), stream, target] {
            self->answer(stream, target);
            self->flush();
        });
    }

    void goAway(std::uint32_t lastStream) {
        ++origin_.faults_;
        isGoingAway_ = true;
        out_ += frame(FrameType::goAway, 0, 0, fourBytes(lastStream) + fourBytes(noError));
    }

    void answer(std::uint32_t stream, const std::string& target) {
        if (!socket_ || !open_.contains(stream)) return;
        const std::string body = bodyFor(target);
        // 0: before the head, 1: after the head, 2: inside the body, otherwise never.
        const std::size_t resetAt = origin_.happens(origin_.conduct_.resets) ? origin_.random(2) : 3;
        if (resetAt > 0) waiting_.push_back(frame(headers, endHeaders, stream, headOfAnswer(body.size())));
        const std::size_t size = resetAt < 2 ? 0 : resetAt == 2 ? body.size() / 2 : body.size();
        for (std::size_t at = 0; at < size; at += largestFrame) {
            const std::size_t length = std::min(largestFrame, size - at);
            const bool isEnd = resetAt > 2 && at + length == size;
            waiting_.push_back(
                frame(data, isEnd ? endStream : 0, stream, std::string_view(body).substr(at, length)));
        }
        if (resetAt <= 2) {
            ++origin_.faults_;
            waiting_.push_back(frame(reset, 0, stream, fourBytes(internalError)));
        }
        open_.erase(stream);
    }

    // Sends data only within the flow-control window of the connection. Bodies are smaller than the windows of streams.
    void releaseWaiting() {
        while (!waiting_.empty()) {
            const bool isData = waiting_.front()[3] == static_cast<char>(data);
            const std::size_t size = isData ? waiting_.front().size() - frameHead : 0;
            if (size > window_) return;
            window_ -= size;
            out_ += waiting_.front();
            waiting_.pop_front();
        }
    }

    void flush() {
        if (!socket_) return;
        releaseWaiting();
        while (!out_.empty()) {
            ERR_clear_error();
            const int sent = SSL_write(ssl_.get(), out_.data(), static_cast<int>(out_.size()));
            if (sent > 0) {
                out_.erase(0, static_cast<std::size_t>(sent));
                continue;
            }
            const int error = SSL_get_error(ssl_.get(), sent);
            if (error != SSL_ERROR_WANT_READ && error != SSL_ERROR_WANT_WRITE) return close();
            break;
        }
        if (isGoingAway_ && open_.empty() && out_.empty() && waiting_.empty()) return close();
        // Before the end of the handshake, nothing can be written.
        const bool wantsWrite = !out_.empty() && SSL_is_init_finished(ssl_.get()) != 0;
        origin_.reactor_.change(socket_.descriptor(), wantsWrite ? EPOLLIN | EPOLLOUT : EPOLLIN);
    }

    void close() {
        if (!socket_) return;
        origin_.reactor_.forget(socket_.descriptor());
        shutdown(socket_.descriptor(), SHUT_WR);
        ssl_.reset();
        socket_.close();
    }

    Http2Origin& origin_;
    Socket socket_;
    std::unique_ptr<SSL, void (*)(SSL*)> ssl_;
    std::string in_;
    std::string out_;
    /// Frames that wait for the window.
    std::deque<std::string> waiting_;
    std::size_t window_ = 65535;
    std::set<std::uint32_t> open_;
    bool hasPreface_ = false;
    bool isGoingAway_ = false;
};

Http2Origin::Http2Origin(Reactor& reactor, const Http2Conduct& conduct, const Identity& identity,
                         const Identity* other, std::uint64_t seed, Loopback loopback)
    : reactor_(reactor), conduct_(conduct), numbers_(seed) {
    contexts_.emplace_back(contextFor(identity), &SSL_CTX_free);
    if (other != nullptr) contexts_.emplace_back(contextFor(*other), &SSL_CTX_free);
    std::tie(listener_, port_) = listenOnLoopback(loopback);
    reactor_.watch(listener_.descriptor(), EPOLLIN, [this](std::uint32_t) {
        Socket socket(::accept4(listener_.descriptor(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
        if (!socket) return;
        ++connections_;
        const int on = 1;
        setsockopt(socket.descriptor(), IPPROTO_TCP, TCP_NODELAY, &on, sizeof(on));
        const bool isOther = contexts_.size() > 1 && (presentsOther_ || happens(conduct_.otherCertificates));
        if (isOther) ++faults_;
        std::make_shared<Connection>(*this, std::move(socket), contexts_[isOther ? 1 : 0].get())->start();
    });
}

Http2Origin::~Http2Origin() { reactor_.forget(listener_.descriptor()); }

std::size_t Http2Origin::random(std::size_t last) {
    return static_cast<std::size_t>(numbers_() % (std::uint64_t{last} + 1));
}

bool Http2Origin::happens(double share) {
    constexpr std::size_t whole = 1000000;
    return share > 0 && static_cast<double>(random(whole)) < share * static_cast<double>(whole);
}

}  // namespace VanticRestKit::test
