#pragma once

/// \file
/// `NameServer`: a DNS server for tests that can simulate failures.

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
    /// It reports a server failure.
    fails,
    /// It reports that the name does not exist.
    denies,
    /// It does not answer.
    silent,
};

/// Answers address queries on port 53 of 127.0.0.1, which is free in a `PrivateNetwork`. Its answers may be changed on
/// any thread.
class NameServer {
public:
    explicit NameServer(Reactor& reactor);
    ~NameServer();
    NameServer(const NameServer&) = delete;
    NameServer& operator=(const NameServer&) = delete;

    /// Whether it could bind the port.
    bool isRunning() const noexcept { return isRunning_; }

    /// Sets the IPv4 and IPv6 addresses of a name.
    void set(const std::string& name, std::vector<std::string> addresses);
    void setFault(NameFault fault);
    /// The number of queries received.
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
