#pragma once

/// \file
/// `NameServer`: a name server of a test's own, which fails when it is told to.

#include "Reactor.h"
#include "Sockets.h"

#include <cstddef>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace VanticRestKit::test {

/// How a name server answers.
enum class NameFault {
    none,
    /// With "server failure".
    fails,
    /// That the name does not exist.
    denies,
    /// Not at all.
    silent,
};

/// Answers questions for addresses on port 53 of 127.0.0.1, which only a network of one's own has free: see
/// `PrivateNetwork`. Any thread may change what it answers.
class NameServer {
public:
    explicit NameServer(Reactor& reactor);
    ~NameServer();
    NameServer(const NameServer&) = delete;
    NameServer& operator=(const NameServer&) = delete;

    /// Whether it has the port.
    bool isRunning() const noexcept { return isRunning_; }

    /// The addresses of a name, of IPv4 and IPv6.
    void set(const std::string& name, std::vector<std::string> addresses);
    void setFault(NameFault fault);
    /// How many questions have come.
    std::size_t questionCount() const;

private:
    void answer();
    std::string answerTo(std::string_view question);

    Reactor& reactor_;
    Socket socket_;
    bool isRunning_ = false;
    mutable std::mutex mutex_;
    std::map<std::string, std::vector<std::string>> names_;
    NameFault fault_ = NameFault::none;
    std::size_t questions_ = 0;
};

}  // namespace VanticRestKit::test
