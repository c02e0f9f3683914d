#include "World.h"

#include <support/NameServer.h>
#include <support/PlainOrigin.h>
#include <support/PrivateNetwork.h>
#include <support/Reactor.h>

#include <sys/epoll.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>
#include <array>
#include <chrono>
#include <csignal>
#include <memory>
#include <random>
#include <sstream>
#include <utility>

namespace VanticRestKit::test {

namespace {

constexpr std::string_view unsteadyName = "unsteady.soak";
constexpr const char* farAddress = "10.9.0.2";

/// The servers of one route.
struct Service {
    std::unique_ptr<PlainOrigin> plain;
    std::unique_ptr<Http2Origin> http2;
    std::unique_ptr<FaultRelay> relay;

    std::uint16_t originPort() const { return plain ? plain->port() : http2->port(); }
    std::uint16_t port() const { return relay ? relay->port() : originPort(); }
};

/// The child process.
class Servers {
public:
    Servers(const std::vector<Route>& routes, bool inPrivateNetwork, const CertificateAuthority& root,
            std::uint64_t seed)
        : numbers_(seed),
          identity_(root.issue({.subject = "IP:127.0.0.1,IP:" + std::string(farAddress)})),
          expired_(root.issue({.from = std::chrono::hours(-48), .until = std::chrono::hours(-24)})) {
        for (const Route& route : routes) {
            if (route.host == RouteHost::movingNetwork) {
                PrivateNetwork::inFarNetwork([&] { serve(route, Loopback::everyAddress); });
            } else {
                serve(route, Loopback::v4);
            }
        }
        if (inPrivateNetwork) serveNames();
    }

    std::string portsText() const {
        std::string text;
        for (const Service& service : services_) text += std::to_string(service.port()) + " ";
        return text + "\n";
    }

    /// Runs until the other end of `control` is closed for writing.
    void runUntilClosed(const Socket& control) {
        reactor_.watch(control.descriptor(), EPOLLIN, [this](std::uint32_t) { reactor_.stop(); });
        reactor_.run();
    }

    std::string countsText() const {
        std::string text;
        for (const Service& service : services_) {
            const auto& http2 = service.http2;
            const std::size_t connections = service.relay ? service.relay->connectionCount()
                                            : http2       ? http2->connectionCount()
                                                          : 0;
            const std::size_t faults =
                (service.relay ? service.relay->faultCount() : 0) + (http2 ? http2->faultCount() : 0);
            text += std::to_string(connections) + " " + std::to_string(faults) + " ";
        }
        return text + "\n";
    }

private:
    void serve(const Route& route, Loopback loopback) {
        // A typical number of requests after which a server closes a connection.
        constexpr std::size_t closesAfter = 30;
        Service service;
        if (route.isHttp2) {
            service.http2 = std::make_unique<Http2Origin>(reactor_, route.conduct, identity_, &expired_,
                                                          numbers_(), loopback);
        } else {
            service.plain = std::make_unique<PlainOrigin>(reactor_, closesAfter, numbers_(), loopback);
        }
        if (route.host != RouteHost::movingNetwork) {
            service.relay =
                std::make_unique<FaultRelay>(reactor_, service.originPort(), route.link, numbers_());
        }
        if (route.host == RouteHost::severalAddresses) {
            dead_.push_back(std::make_unique<DeadAddress>("127.0.0.2", service.port()));
        }
        services_.push_back(std::move(service));
    }

    void serveNames() {
        names_ = std::make_unique<NameServer>(reactor_);
        names_->set(std::string(unsteadyName), {"127.0.0.1"});
        changeNameFault();
    }

    // It works half of the time.
    void changeNameFault() {
        static constexpr std::array<NameFault, 6> faults{NameFault::none,   NameFault::none,
                                                         NameFault::none,   NameFault::fails,
                                                         NameFault::denies, NameFault::silent};
        names_->setFault(faults[numbers_() % faults.size()]);
        reactor_.after(std::chrono::milliseconds(100 + numbers_() % 400), [this] { changeNameFault(); });
    }

    std::mt19937_64 numbers_;
    const Identity identity_;
    const Identity expired_;
    Reactor reactor_;
    std::vector<Service> services_;
    std::vector<std::unique_ptr<DeadAddress>> dead_;
    std::unique_ptr<NameServer> names_;
};

std::string readLine(const Socket& socket) {
    std::string text;
    char byte = 0;
    while (recv(socket.descriptor(), &byte, 1, 0) == 1 && byte != '\n') text += byte;
    return text;
}

std::string baseOf(const Route& route, std::uint16_t port) {
    std::string host = "127.0.0.1";
    if (route.host == RouteHost::severalAddresses) host = severalAddressesHost;
    if (route.host == RouteHost::unsteadyName) host = unsteadyName;
    if (route.host == RouteHost::movingNetwork) host = farAddress;
    return (route.isHttp2 ? "https://" : "http://") + host + ":" + std::to_string(port);
}

}  // namespace

World::World(const std::vector<Route>& routes, bool inPrivateNetwork, std::uint64_t seed) {
    const CertificateAuthority root;
    rootCertificate_ = root.pem();
    int ends[2] = {-1, -1};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) return;
    control_ = Socket(ends[0]);
    Socket childsEnd(ends[1]);
    process_ = fork();
    if (process_ == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        std::signal(SIGPIPE, SIG_IGN);
        control_.close();
        Servers servers(routes, inPrivateNetwork, root, seed);
        const std::string ports = servers.portsText();
        sendAll(childsEnd.descriptor(), ports.data(), ports.size());
        servers.runUntilClosed(childsEnd);
        const std::string counts = servers.countsText();
        sendAll(childsEnd.descriptor(), counts.data(), counts.size());
        _exit(0);
    }
    childsEnd.close();
    std::istringstream ports(readLine(control_));
    for (std::uint16_t port = 0; ports >> port;) {
        bases_.push_back(baseOf(routes.at(ports_.size()), port));
        ports_.push_back(port);
    }
    if (ports_.size() != routes.size()) bases_.clear();
}

World::~World() {
    if (process_ > 0) end();
}

std::vector<RouteCounts> World::end() {
    shutdown(control_.descriptor(), SHUT_WR);
    std::istringstream text(readLine(control_));
    std::vector<RouteCounts> counts;
    for (RouteCounts each; text >> each.connections >> each.faults;) counts.push_back(each);
    waitpid(std::exchange(process_, -1), nullptr, 0);
    return counts;
}

}  // namespace VanticRestKit::test
