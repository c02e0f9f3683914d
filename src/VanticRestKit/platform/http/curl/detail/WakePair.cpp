#include <VanticRestKit/platform/http/curl/detail/WakePair.h>

#include <dirent.h>
#include <fcntl.h>
#include <linux/sockios.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <charconv>
#include <memory>
#include <string_view>
#include <vector>

namespace VanticRestKit::detail {

namespace {

int socketOption(int descriptor, int option) {
    int value = -1;
    socklen_t size = sizeof(value);
    return getsockopt(descriptor, SOL_SOCKET, option, &value, &size) == 0 ? value : -1;
}

// Whether it is of the kind that libcurl makes: a non-blocking local stream socket without close-on-exec.
bool mayBelongToPair(int descriptor) {
    const int flags = fcntl(descriptor, F_GETFD);
    if (flags < 0 || (flags & FD_CLOEXEC) != 0) return false;
    return socketOption(descriptor, SO_DOMAIN) == AF_UNIX &&
           socketOption(descriptor, SO_TYPE) == SOCK_STREAM && (fcntl(descriptor, F_GETFL) & O_NONBLOCK) != 0;
}

// Whether a socket has unread bytes in either direction.
bool hasUnreadBytes(int descriptor) {
    int incoming = 0;
    int outgoing = 0;
    return ioctl(descriptor, SIOCINQ, &incoming) == 0 && ioctl(descriptor, SIOCOUTQ, &outgoing) == 0 &&
           (incoming > 0 || outgoing > 0);
}

std::vector<int> candidates() {
    struct Closer {
        void operator()(DIR* folder) const { closedir(folder); }
    };
    std::vector<int> found;
    const std::unique_ptr<DIR, Closer> folder(opendir("/proc/self/fd"));
    while (const dirent* const entry = folder ? readdir(folder.get()) : nullptr) {
        const std::string_view name = entry->d_name;
        int descriptor = -1;
        std::from_chars(name.data(), name.data() + name.size(), descriptor);
        if (descriptor >= 0 && mayBelongToPair(descriptor) && !hasUnreadBytes(descriptor))
            found.push_back(descriptor);
    }
    return found;
}

}  // namespace

// libcurl has no function that returns these descriptors, and no option for them. They are identified by their
// behaviour: a wake-up puts a byte between them, and the next poll of the handle removes it.
void closeWakePairInChildren(CURLM* multi) {
    constexpr int rounds = 2;
    std::vector<int> found = candidates();
    for (int round = 0; round < rounds && !found.empty(); ++round) {
        curl_multi_wakeup(multi);
        std::erase_if(found, [](int descriptor) { return !hasUnreadBytes(descriptor); });
        curl_multi_poll(multi, nullptr, 0, 0, nullptr);
        std::erase_if(found, [](int descriptor) { return hasUnreadBytes(descriptor); });
    }
    if (found.size() != 2) return;
    for (const int descriptor : found) fcntl(descriptor, F_SETFD, FD_CLOEXEC);
}

}  // namespace VanticRestKit::detail
