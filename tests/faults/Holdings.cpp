#include "Holdings.h"

#include "Shim.h"

#include <dirent.h>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>
#include <array>
#include <chrono>
#include <cstdlib>
#include <string>
#include <string_view>

namespace VanticRestKit::test {

namespace {

// Calls `visit` with each name in a folder. Does not throw if the folder disappears: the thread whose folder it is may
// end in the meantime.
template <class Visit>
void visitNames(const char* path, Visit visit) {
    DIR* const folder = opendir(path);
    if (folder == nullptr) return;
    while (const dirent* const entry = readdir(folder)) {
        if (entry->d_name[0] != '.') visit(entry->d_name);
    }
    closedir(folder);
}

std::string nameOfThread(const char* number) {
    const int file =
        ::open(("/proc/self/task/" + std::string(number) + "/comm").c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) return {};
    std::array<char, 64> text{};
    const ssize_t count = ::read(file, text.data(), text.size());
    ::close(file);
    return {text.data(), count > 0 ? static_cast<std::size_t>(count) : 0};
}

bool isKept(std::string_view name) { return name.starts_with("vrk-pool") || name.starts_with("VRK timer"); }

}  // namespace

Holdings holdingsNow() {
    const Exempt exempt;
    Holdings now;
    // One descriptor is that of the folder being read.
    visitNames("/proc/self/fd", [&now](const char*) { ++now.descriptors; });
    --now.descriptors;
    visitNames("/proc/self/task", [&now](const char* number) {
        if (!isKept(nameOfThread(number))) ++now.threads;
    });
    now.bytes = liveBytes();
    return now;
}

// Polls, because nothing signals the end of a thread of the library.
Holdings waitForHoldings(const Holdings& wanted, std::int64_t tolerance) {
    using Clock = std::chrono::steady_clock;
    const Exempt exempt;
    const auto deadline = Clock::now() + std::chrono::seconds(10);
    while (true) {
        const Holdings now = holdingsNow();
        const bool isThere = now.descriptors <= wanted.descriptors && now.threads <= wanted.threads &&
                             now.bytes <= wanted.bytes + tolerance;
        if (isThere || Clock::now() > deadline) return now;
        ::poll(nullptr, 0, 1);
    }
}

}  // namespace VanticRestKit::test
