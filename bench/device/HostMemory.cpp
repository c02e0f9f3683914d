#include "HostMemory.h"

#include <malloc.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <thread>

namespace VanticRestKit::bench {

HostMemory hostMemory() {
    HostMemory memory;
    std::ifstream rollup("/proc/self/smaps_rollup");
    for (std::string line; std::getline(rollup, line);) {
        const auto end = line.find(':');
        if (end == std::string::npos) continue;
        const long bytes = std::atol(line.c_str() + end + 1) * 1024;
        if (line.starts_with("Rss:")) memory.resident = bytes;
        if (line.starts_with("Private_")) memory.unshared += bytes;
    }
    const struct mallinfo2 heap = mallinfo2();
    memory.allocated = static_cast<long>(heap.uordblks + heap.hblkhd);
    return memory;
}

void printHostMemory() {
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    const HostMemory memory = hostMemory();
    std::printf("%ld %ld %ld\n", memory.resident, memory.unshared, memory.allocated);
    std::fflush(stdout);
}

}  // namespace VanticRestKit::bench
