#include "Leftovers.h"

#include <malloc.h>
#include <poll.h>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>

namespace VanticRestKit::test {

namespace {

std::size_t countDescriptors() {
    std::size_t count = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) ++count;
    // Excludes the descriptor used for reading the folder.
    return count - 1;
}

std::size_t countThreads() {
    std::size_t count = 0;
    for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
        std::string name;
        std::ifstream(task.path() / "comm") >> name;
        if (!name.starts_with("vrk-pool")) ++count;
    }
    return count;
}

bool isAsQuiet(const Holdings& now, const Holdings& wanted) {
    return now.descriptors <= wanted.descriptors && now.threads <= wanted.threads;
}

}  // namespace

Holdings holdingsNow() {
    malloc_trim(0);
    const auto memory = mallinfo2();
    return {countDescriptors(), countThreads(), memory.uordblks + memory.hblkhd};
}

// There is no event for the end of a thread of the C library.
Holdings quietHoldings(const Holdings* wanted) {
    using Clock = std::chrono::steady_clock;
    constexpr int quietRounds = 15;
    const auto deadline = Clock::now() + std::chrono::seconds(30);
    Holdings last = holdingsNow();
    for (int same = 0; same < quietRounds && Clock::now() < deadline;) {
        poll(nullptr, 0, 100);
        const Holdings next = holdingsNow();
        const bool isSame = next.descriptors == last.descriptors && next.threads == last.threads;
        same = isSame && (wanted == nullptr || isAsQuiet(next, *wanted)) ? same + 1 : 0;
        last = next;
    }
    return last;
}

}  // namespace VanticRestKit::test
