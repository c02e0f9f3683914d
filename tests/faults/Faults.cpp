// Makes calls of a load fail, one in each trial, and checks the result of the load.
//   faults [--scenario NAME] [--most N]
//   faults --scenario NAME [--first] --fail CALL:NUMBER:ERROR
// Without --most, each call of each kind fails with each of its errors; with it, N of them for each kind, evenly
// spread. The second form runs one trial and prints the stack of the call that fails.

#include "Calls.h"
#include "Origin.h"
#include "Trial.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace VanticRestKit::test {

namespace {

struct Options {
    std::string_view scenario{};
    std::size_t most = std::numeric_limits<std::size_t>::max();
    std::optional<Fault> fault{};
    bool isFirst = false;
};

/// How many trials of a scenario may end badly, because of faults of libcurl 7.88 that the library cannot prevent:
///   - If a connection over TLS has no memory for OpenSSL's buffers, libcurl loses the error and tries again until the
///     load times out.
///   - If the host name of a TLS session cannot be copied, libcurl frees the session twice.
///   - After nghttp2 had no memory for a frame that it received, libcurl calls it again, although it must not.
struct Tolerated {
    std::string_view scenario;
    Call call;
    Verdict verdict;
    std::size_t trials;
};
constexpr std::array toleratedTrials{Tolerated{"secure", Call::malloc, Verdict::hung, 2},
                                     Tolerated{"secure", Call::malloc, Verdict::crashed, 2},
                                     Tolerated{"streams", Call::malloc, Verdict::hung, 2},
                                     Tolerated{"streams", Call::malloc, Verdict::crashed, 4}};

bool areTolerated(const Trial& trial, Verdict verdict, std::size_t trials) {
    return std::ranges::any_of(toleratedTrials, [&](const Tolerated& each) {
        return each.scenario == trial.scenario->name && each.call == trial.fault.call &&
               each.verdict == verdict && trials <= each.trials;
    });
}

/// Removes its folder when it is destroyed.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string name = std::filesystem::temp_directory_path() / "vrk-faults-XXXXXX";
        if (mkdtemp(name.data()) == nullptr) std::abort();
        path_ = name;
    }
    ~TemporaryFolder() { std::filesystem::remove_all(path_); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::string& path() const noexcept { return path_; }

private:
    std::string path_;
};

class Trials {
public:
    explicit Trials(const Options& options) : options_(options) {}

    TrialReport run(const Trial& trial) {
        // The servers keep the stack of one thread for each connection until they are destroyed.
        constexpr std::size_t trialsOfAnOrigin = 1000;
        if (count_++ % trialsOfAnOrigin == 0) {
            origin_.reset();
            origin_ = std::make_unique<Origin>();
            if (!origin_->isRunning()) std::abort();
        }
        const TemporaryFolder folder;
        std::ofstream(folder.path() + "/authority.pem") << origin_->addresses().authority;
        return runTrial(trial, {.addresses = origin_->addresses(), .folder = folder.path()});
    }

    /// Returns whether all trials passed.
    bool runAll(const Scenario& scenario, bool isFirst) {
        std::array<std::uint64_t, callCount> counts{};
        for (int i = 0; i < 2; ++i) {
            const TrialReport report = run({.scenario = &scenario, .isFirst = isFirst});
            if (report.verdict != Verdict::untouched) {
                std::printf("FAULT: %s without a fault: %s, %s\n", scenario.name.data(),
                            nameOf(report.verdict), report.story.c_str());
                return false;
            }
            for (std::size_t each = 0; each < counts.size(); ++each) {
                counts[each] = std::max(counts[each], report.counts[each]);
            }
        }
        bool isAllGood = true;
        for (const CallTraits& traits : callTraits()) {
            const std::uint64_t count = counts[static_cast<std::size_t>(traits.call)];
            if (count > 0) isAllGood &= runKind({.scenario = &scenario, .isFirst = isFirst}, traits, count);
        }
        return isAllGood;
    }

private:
    bool runKind(Trial trial, const CallTraits& traits, std::uint64_t calls) {
        const std::size_t all = calls * traits.errors.size();
        const std::size_t trials = std::min(options_.most, all);
        std::array<std::size_t, verdictCount> verdicts{};
        for (std::size_t i = 0; i < trials; ++i) {
            const std::size_t chosen = trials == 1 ? 0 : i * (all - 1) / (trials - 1);
            trial.fault = {.call = traits.call,
                           .number = 1 + chosen / traits.errors.size(),
                           .error = traits.errors[chosen % traits.errors.size()]};
            const TrialReport report = run(trial);
            ++verdicts[static_cast<std::size_t>(report.verdict)];
            if (isGood(report.verdict)) continue;
            std::printf("FAULT: --scenario %s%s --fail %s: %s, %s\n", trial.scenario->name.data(),
                        trial.isFirst ? " --first" : "", textOf(trial.fault).c_str(), nameOf(report.verdict),
                        report.story.c_str());
        }
        std::printf("%-8s %-6s %-15s %7zu %7zu", trial.scenario->name.data(),
                    trial.isFirst ? "first" : "later", traits.name.data(), static_cast<std::size_t>(calls),
                    trials);
        bool isAllGood = true;
        for (std::size_t i = 0; i < verdicts.size(); ++i) {
            std::printf(" %9zu", verdicts[i]);
            const auto verdict = static_cast<Verdict>(i);
            isAllGood &= verdicts[i] == 0 || isGood(verdict) || areTolerated(trial, verdict, verdicts[i]);
        }
        std::printf("\n");
        return isAllGood;
    }

    const Options options_;
    std::unique_ptr<Origin> origin_;
    std::size_t count_ = 0;
};

std::optional<Options> read(int count, char** words) {
    Options options;
    for (int i = 1; i < count; ++i) {
        const std::string_view word = words[i];
        if (word == "--first") {
            options.isFirst = true;
        } else if (i + 1 == count) {
            return std::nullopt;
        } else if (word == "--scenario") {
            options.scenario = words[++i];
        } else if (word == "--most") {
            options.most = std::strtoull(words[++i], nullptr, 10);
        } else if (word == "--fail") {
            options.fault = faultOf(words[++i]);
            if (!options.fault) return std::nullopt;
        } else {
            return std::nullopt;
        }
    }
    return options;
}

bool runOne(const Options& options) {
    for (const Scenario& scenario : scenarios()) {
        if (scenario.name != options.scenario) continue;
        const TrialReport report = Trials(options).run(
            {.scenario = &scenario, .isFirst = options.isFirst, .fault = *options.fault, .isTraced = true});
        std::printf("%s: %s\n", nameOf(report.verdict), report.story.c_str());
        return isGood(report.verdict);
    }
    return false;
}

bool runAll(const Options& options) {
    std::printf("%-8s %-6s %-15s %7s %7s", "scenario", "load", "call", "calls", "trials");
    for (int i = 0; i < verdictCount; ++i) std::printf(" %9s", nameOf(static_cast<Verdict>(i)));
    std::printf("\n");
    bool isAllGood = true;
    bool isAnyRun = false;
    for (const Scenario& scenario : scenarios()) {
        if (!options.scenario.empty() && scenario.name != options.scenario) continue;
        isAnyRun = true;
        for (const bool isFirst : {true, false}) isAllGood &= Trials(options).runAll(scenario, isFirst);
    }
    return isAllGood && isAnyRun;
}

}  // namespace

}  // namespace VanticRestKit::test

int main(int count, char** words) {
    using namespace VanticRestKit::test;
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    const auto options = read(count, words);
    if (!options) {
        std::fprintf(stderr,
                     "usage: faults [--scenario NAME] [--most N] [--first --fail CALL:NUMBER:ERROR]\n");
        return 2;
    }
    const bool isGood = options->fault ? runOne(*options) : runAll(*options);
    std::printf("%s\n", isGood ? "passed" : "FAILED");
    return isGood ? 0 : 1;
}
