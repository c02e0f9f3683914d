#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace VanticRestKit::bench {

/// Code to be timed in comparison with other code in the same process.
struct Case {
    std::string name;
    std::function<void()> run;
    /// Run only in every n-th round, for code that is too slow to run in each.
    std::size_t every = 1;
};

/// User and system time of this process so far, in seconds. Other processes have little influence on it.
double processorTime();

/// The processor times of the runs of a case, in seconds.
struct Times {
    std::vector<double> runs;
    /// The times of the first case in the same rounds.
    std::vector<double> baseline;

    double least() const;
    double median() const;
    /// The median over all rounds of the ratio of this case to the first one. A disturbance that lasts longer than a
    /// round affects both.
    double ratio() const;
};

/// Runs the cases alternately, `rounds` times. The first case is the baseline of the others.
std::vector<Times> interleaved(std::size_t rounds, const std::vector<Case>& cases);

/// Prevents the compiler from removing an unused value.
template <class T>
void keep(const T& value) {
    asm volatile("" : : "r"(&value) : "memory");
}

/// Prints one line of the table: a ratio or another figure, its budget, and a remark. Fields are separated by tabs;
/// `bench/run` formats the table and compares the figures with the budgets.
void report(const std::string& what, const std::string& figure, const std::string& budget,
            const std::string& goal, const std::string& remark);

/// A figure with a fixed number of decimals.
std::string figure(double value, int decimals = 2);

}  // namespace VanticRestKit::bench
