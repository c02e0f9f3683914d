#include "Measure.h"

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace VanticRestKit::bench {

namespace {

double medianOf(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

double timeOf(const std::function<void()>& run) {
    const double before = processorTime();
    run();
    return processorTime() - before;
}

}  // namespace

double processorTime() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

double Times::least() const { return *std::min_element(runs.begin(), runs.end()); }

double Times::median() const { return medianOf(runs); }

double Times::ratio() const {
    std::vector<double> ratios;
    for (std::size_t i = 0; i < runs.size(); ++i) ratios.push_back(runs[i] / baseline[i]);
    return medianOf(std::move(ratios));
}

std::vector<Times> interleaved(std::size_t rounds, const std::vector<Case>& cases) {
    // The first round is not counted: it warms up caches, branch predictors and the allocator.
    for (const Case& one : cases) one.run();

    std::vector<Times> times(cases.size());
    for (std::size_t round = 0; round < rounds; ++round) {
        double baseline = 0;
        for (std::size_t i = 0; i < cases.size(); ++i) {
            if (round % cases[i].every != 0) continue;
            const double time = timeOf(cases[i].run);
            if (i == 0) baseline = time;
            times[i].runs.push_back(time);
            times[i].baseline.push_back(baseline);
        }
    }
    return times;
}

void report(const std::string& what, const std::string& figure, const std::string& budget,
            const std::string& goal, const std::string& remark) {
    std::printf("%s\t%s\t%s\t%s\t%s\n", what.c_str(), figure.c_str(), budget.c_str(), goal.c_str(),
                remark.c_str());
    std::fflush(stdout);
}

std::string figure(double value, int decimals) {
    char text[32];
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    return text;
}

}  // namespace VanticRestKit::bench
