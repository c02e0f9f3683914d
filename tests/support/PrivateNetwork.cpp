#include "PrivateNetwork.h"

#include "Certificates.h"
#include "Sockets.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fstream>

namespace VanticRestKit::test {

namespace {

std::string failed(const std::string& what) { return what + ": " + std::strerror(errno); }

bool write(const std::string& path, const std::string& text) {
    std::ofstream file(path);
    file << text;
    return static_cast<bool>(file.flush());
}

/// Enters new namespaces. Other users than root need a user namespace in which they are root.
std::string unshareAll() {
    if (unshare(CLONE_NEWNET | CLONE_NEWNS) == 0) return {};
    const uid_t user = geteuid();
    const gid_t group = getegid();
    if (unshare(CLONE_NEWUSER | CLONE_NEWNET | CLONE_NEWNS) != 0)
        return failed("no network namespace is allowed");
    const bool isMapped = write("/proc/self/setgroups", "deny") &&
                          write("/proc/self/uid_map", "0 " + std::to_string(user) + " 1") &&
                          write("/proc/self/gid_map", "0 " + std::to_string(group) + " 1");
    return isMapped ? std::string() : failed("no user namespace is allowed");
}

std::string enterOnce() {
    if (std::system("ip -Version >/dev/null 2>&1") != 0) return "there is no program ip";
    if (std::string reason = unshareAll(); !reason.empty()) return reason;
    // Keeps the following mounts private to this process.
    if (mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) return failed("no mount is allowed");
    const TemporaryFile names("nameserver 127.0.0.1\noptions timeout:1 attempts:2\n");
    if (mount(names.path().c_str(), "/etc/resolv.conf", nullptr, MS_BIND, nullptr) != 0) {
        return failed("/etc/resolv.conf cannot be replaced");
    }
    // Named networks are files below /run.
    if (mount("tmpfs", "/run", "tmpfs", 0, nullptr) != 0) return failed("/run cannot be replaced");
    if (!PrivateNetwork::ip("link set lo up")) return "the loopback cannot be set up";
    return {};
}

}  // namespace

std::string PrivateNetwork::enter() {
    static const std::string reason = enterOnce();
    return reason;
}

bool PrivateNetwork::ip(const std::string& arguments) {
    const std::string command = "ip " + arguments;
    return std::system(command.c_str()) == 0;
}

bool PrivateNetwork::connectFarNetwork() {
    static const bool isConnected =
        ip("netns add far") && ip("link add near type veth peer name far netns far") &&
        ip("-n far link set lo up") && ip("-n far addr add 10.9.0.2/24 dev far") &&
        ip("-n far addr add fd09::2/64 dev far nodad") && ip("-n far link set far up") &&
        ip("addr add 10.9.0.1/24 dev near") && ip("addr add fd09::1/64 dev near nodad") &&
        ip("link set near up");
    return isConnected;
}

void PrivateNetwork::inFarNetwork(const std::function<void()>& action) {
    const Socket here(open("/proc/thread-self/ns/net", O_RDONLY | O_CLOEXEC));
    const Socket far(open("/run/netns/far", O_RDONLY | O_CLOEXEC));
    ASSERT_EQ(setns(far.descriptor(), CLONE_NEWNET), 0) << std::strerror(errno);
    action();
    ASSERT_EQ(setns(here.descriptor(), CLONE_NEWNET), 0) << std::strerror(errno);
}

}  // namespace VanticRestKit::test
