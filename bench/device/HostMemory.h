#pragma once

namespace VanticRestKit::bench {

/// What this process takes, in bytes.
struct HostMemory {
    /// In memory, with the pages of libraries that it has touched.
    long resident = 0;
    /// Of that, what no other process shares.
    long unshared = 0;
    /// What it has allocated and not freed, over all threads.
    long allocated = 0;
};

HostMemory hostMemory();

/// Waits until what ended loads leave to other threads is done, and prints what this process takes: one line with the
/// three figures.
void printHostMemory();

}  // namespace VanticRestKit::bench
