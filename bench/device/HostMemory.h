#pragma once

namespace VanticRestKit::bench {

/// The memory of this process, in bytes.
struct HostMemory {
    /// Resident memory, including the used pages of libraries.
    long resident = 0;
    /// The part of it that is not shared with other processes.
    long unshared = 0;
    /// Heap memory in use, by all threads.
    long allocated = 0;
};

HostMemory hostMemory();

/// Waits until other threads have finished their work for ended loads, and prints one line with the three figures.
void printHostMemory();

}  // namespace VanticRestKit::bench
