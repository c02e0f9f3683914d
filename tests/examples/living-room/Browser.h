#pragma once

// The host on a thread of its own, and a browser without a screen that talks to it over sockets.

#include "Context.h"
#include "pages/Pages.h"
#include "Server.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/time.h>

#include <thread>

#include "support/Sockets.h"

namespace living_room {

/// The host on a free port, with a thread of its own, for a service at `baseURL`.
class RunningHost {
public:
    explicit RunningHost(const URL& baseURL) : service_(baseURL, server_.queue()) {
        thread_ = std::thread(
            [this] { server_.run([this](Request request) { return pages_.answer(std::move(request)); }); });
    }
    ~RunningHost() {
        server_.stop();
        thread_.join();
    }

    std::uint16_t port() const { return server_.port(); }
    std::string authority() const { return "127.0.0.1:" + std::to_string(port()); }

private:
    Server server_{0};
    Service service_;
    Pages pages_{service_, server_.port()};
    std::thread thread_;
};

/// Sends `bytes` and returns the answer: what arrives until the host closes the connection, or until nothing has
/// arrived for half a minute.
inline std::string exchange(std::uint16_t port, const std::string& bytes) {
    const auto socket = VanticRestKit::test::connectToLoopback(port);
    const timeval timeout{.tv_sec = 30, .tv_usec = 0};
    ::setsockopt(socket.descriptor(), SOL_SOCKET, SO_RCVTIMEO, &timeout, sizeof timeout);
    VanticRestKit::test::sendAll(socket.descriptor(), bytes.data(), bytes.size());
    std::string answer;
    char buffer[8192];
    for (ssize_t size = 0; (size = ::recv(socket.descriptor(), buffer, sizeof buffer, 0)) > 0;) {
        answer.append(buffer, static_cast<std::size_t>(size));
    }
    return answer;
}

/// Keeps its cookie between requests, as a browser does.
class Browser {
public:
    explicit Browser(const RunningHost& host) : host_(host) {}

    /// The answer with its headers.
    std::string get(const std::string& target) { return ask("GET " + target + " HTTP/1.1\r\n", ""); }
    std::string post(const std::string& target, const std::string& form) {
        return ask("POST " + target + " HTTP/1.1\r\nOrigin: http://" + host_.authority() + "\r\n", form);
    }

private:
    std::string ask(const std::string& start, const std::string& body) {
        const std::string answer =
            exchange(host_.port(), start + "Host: " + host_.authority() + "\r\nCookie: " + cookie_ +
                                       "\r\nContent-Length: " + std::to_string(body.size()) +
                                       "\r\nConnection: close\r\n\r\n" + body);
        const std::size_t cookie = answer.find("Set-Cookie: ");
        if (cookie != std::string::npos) {
            const std::size_t begin = cookie + 12;
            cookie_ = answer.substr(begin, answer.find(';', begin) - begin);
        }
        return answer;
    }

    const RunningHost& host_;
    std::string cookie_{};
};

}  // namespace living_room
