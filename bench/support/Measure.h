#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace VanticRestKit::bench {

/// Something to be timed against other things in the same process.
struct Case {
    std::string name;
    std::function<void()> run;
    /// How many rounds pass between two runs, for what is too slow to be run in each.
    std::size_t every = 1;
};

/// Processor time of this process so far, its own and the kernel's for it, in seconds. What else the machine does
/// counts for little in it.
double processorTime();

/// What the runs of a case took, in seconds of processor time.
struct Times {
    std::vector<double> runs;
    /// What the first case took in the same rounds.
    std::vector<double> baseline;

    double least() const;
    double median() const;
    /// The median of this case's time over that of the first case, round by round: what disturbs the machine
    /// for longer than a round disturbs both.
    double ratio() const;
};

/// Runs the cases in turn, `rounds` times; the first case is the baseline of the others.
std::vector<Times> interleaved(std::size_t rounds, const std::vector<Case>& cases);

/// Keeps the compiler from dropping an unused value.
template <class T>
void keep(const T& value) {
    asm volatile("" : : "r"(&value) : "memory");
}

/// One line of the table: a ratio or another figure, what it may be at most, and a remark. Fields are parted by
/// tabs; `bench/run` lays them out and compares.
void report(const std::string& what, const std::string& figure, const std::string& budget,
            const std::string& goal, const std::string& remark);

/// A figure with as many decimals as are worth reading.
std::string figure(double value, int decimals = 2);

}  // namespace VanticRestKit::bench
