#include <VanticRestKit/platform/http/curl/detail/OwnAddresses.h>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>
#include <algorithm>
#include <cerrno>
#include <chrono>

namespace VanticRestKit::detail {

namespace {

// The system refuses to bind a socket to an address that it does not have. Any other failure is inconclusive.
bool isLost(const std::string& address) {
    sockaddr_in v4{};
    sockaddr_in6 v6{};
    v4.sin_family = AF_INET;
    v6.sin6_family = AF_INET6;
    const bool isV4 = inet_pton(AF_INET, address.c_str(), &v4.sin_addr) == 1;
    if (!isV4 && inet_pton(AF_INET6, address.c_str(), &v6.sin6_addr) != 1) return false;
    const int probe = ::socket(isV4 ? AF_INET : AF_INET6, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (probe < 0) return false;
    const auto* const name =
        isV4 ? reinterpret_cast<const sockaddr*>(&v4) : reinterpret_cast<const sockaddr*>(&v6);
    const socklen_t size = isV4 ? sizeof(v4) : sizeof(v6);
    const bool isRefused = ::bind(probe, name, size) != 0 && errno == EADDRNOTAVAIL;
    ::close(probe);
    return isRefused;
}

}  // namespace

void OwnAddresses::note(std::string_view address) {
    if (address.starts_with("127.") || address == "::1") return;
    if (std::find(noted_.begin(), noted_.end(), address) == noted_.end()) noted_.emplace_back(address);
}

std::vector<std::string> OwnAddresses::takeLost(TimePoint now) {
    if (noted_.empty() || now - lastLook_ < std::chrono::milliseconds(1)) return {};
    lastLook_ = now;
    std::vector<std::string> lost;
    std::erase_if(noted_, [&lost](const std::string& address) {
        if (!isLost(address)) return false;
        lost.push_back(address);
        return true;
    });
    return lost;
}

}  // namespace VanticRestKit::detail
