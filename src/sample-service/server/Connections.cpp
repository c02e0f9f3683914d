#include "server/Connections.h"

#include <arpa/inet.h>
#include <dirent.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

namespace VanticRestKit::sample {

namespace {

int portOf(int socket, int (*name)(int, sockaddr*, socklen_t*)) {
    sockaddr_in address{};
    socklen_t length = sizeof address;
    if (name(socket, reinterpret_cast<sockaddr*>(&address), &length) != 0 || address.sin_family != AF_INET) {
        return -1;
    }
    return ntohs(address.sin_port);
}

std::vector<int> openDescriptors() {
    std::vector<int> result;
    DIR* folder = opendir("/proc/self/fd");
    if (folder == nullptr) return result;
    while (const dirent* entry = readdir(folder)) {
        if (entry->d_name[0] != '.') result.push_back(std::atoi(entry->d_name));
    }
    closedir(folder);
    return result;
}

}  // namespace

Connections::Connections(int localPort) : localPort_(localPort), stopping_(eventfd(0, EFD_CLOEXEC)) {}

Connections::~Connections() { close(stopping_); }

int Connections::socketOf(int peerPort) const {
    for (const int descriptor : openDescriptors()) {
        if (portOf(descriptor, getpeername) == peerPort && portOf(descriptor, getsockname) == localPort_) {
            return descriptor;
        }
    }
    return -1;
}

// Returns whether the time has elapsed.
bool Connections::pollUntil(int peerPort, int milliseconds) const {
    pollfd waited[] = {{stopping_, POLLIN, 0}, {socketOf(peerPort), POLLRDHUP, 0}};
    return poll(waited, 2, milliseconds) == 0;
}

bool Connections::wait(int peerPort, std::chrono::duration<double> time) const {
    const double milliseconds = std::clamp(time.count() * 1000.0, 0.0, 86'400'000.0);
    return pollUntil(peerPort, static_cast<int>(milliseconds));
}

void Connections::waitForEnd(int peerPort) const { pollUntil(peerPort, -1); }

void Connections::reset(int peerPort) const {
    const int socket = socketOf(peerPort);
    if (socket < 0) return;
    const linger atOnce{1, 0};
    setsockopt(socket, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
    // The HTTP server will still write its answer and close this descriptor, so it is replaced by an unconnected
    // socket, which closes the connection.
    int deaf[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, deaf) != 0) return;
    close(deaf[1]);
    dup2(deaf[0], socket);
    close(deaf[0]);
}

void Connections::stop() const {
    eventfd_write(stopping_, 1);
    for (const int descriptor : openDescriptors()) {
        if (portOf(descriptor, getsockname) == localPort_ && portOf(descriptor, getpeername) >= 0) {
            shutdown(descriptor, SHUT_RD);
        }
    }
}

}  // namespace VanticRestKit::sample
