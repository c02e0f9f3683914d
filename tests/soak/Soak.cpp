// Drives the library over bad networks for a given number of loads or a given time. Exits with 0 if every load ended
// exactly once, in time and with an allowed outcome, and if no resources remain. scripts/soak builds and runs it.

#include "Leftovers.h"
#include "Loads.h"
#include "Routes.h"
#include "World.h"

#include <support/PrivateNetwork.h>
#include <support/Sanitized.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

using namespace VanticRestKit::test;

namespace {

using Clock = Loads::Clock;

// The tolerance for the allocator's bookkeeping. A leak of one byte per load would exceed it in 200,000 loads.
constexpr std::size_t bytesTolerated = 128 * 1024;
// A session keeps up to 128 of libcurl's handles with their buffers for later loads.
constexpr std::size_t bytesToleratedInSession = 16 * 1024 * 1024;

struct Options {
    std::size_t loads = std::numeric_limits<std::size_t>::max();
    std::chrono::duration<double> time{std::chrono::hours(24 * 365)};
    std::uint64_t seed = 1;
    std::size_t atOnce = 96;
    /// The only route to use, or empty for all.
    std::string route{};
};

std::optional<Options> read(int count, char** words) {
    Options options;
    bool isLimited = false;
    for (int i = 1; i + 1 < count; i += 2) {
        const std::string_view name = words[i];
        if (name == "--route") {
            options.route = words[i + 1];
            continue;
        }
        char* end = nullptr;
        const double number = std::strtod(words[i + 1], &end);
        if (*end != 0 || number <= 0) return std::nullopt;
        isLimited |= name != "--seed" && name != "--at-once";
        if (name == "--loads") {
            options.loads = static_cast<std::size_t>(number);
        } else if (name == "--minutes") {
            options.time = std::chrono::duration<double, std::ratio<60>>(number);
        } else if (name == "--hours") {
            options.time = std::chrono::duration<double, std::ratio<3600>>(number);
        } else if (name == "--seed") {
            options.seed = static_cast<std::uint64_t>(number);
        } else if (name == "--at-once") {
            options.atOnce = static_cast<std::size_t>(number);
        } else {
            return std::nullopt;
        }
    }
    return isLimited && count % 2 == 1 ? std::optional(options) : std::nullopt;
}

/// Removes the network from time to time and restores it with another address of this machine.
class Outages {
public:
    explicit Outages(const std::vector<Route>& routes) {
        for (std::size_t i = 0; i < routes.size(); ++i) {
            if (routes[i].host == RouteHost::movingNetwork) routes_.push_back(i);
        }
    }

    void happen(Loads& loads) {
        if (routes_.empty() || Clock::now() < next_) return;
        ++count_;
        PrivateNetwork::ip("link set near down");
        PrivateNetwork::ip("addr flush dev near");
        for (const std::size_t route : routes_) {
            if (loads.runOne(route, std::chrono::milliseconds(500)) == "success")
                faults_.push_back("a load succeeded without a network");
        }
        // 10.9.0.2 is the far end of the connection.
        PrivateNetwork::ip("addr add 10.9.0." + std::to_string(10 + count_ % 80) + "/24 dev near");
        PrivateNetwork::ip("link set near up");
        for (const std::size_t route : routes_) {
            const auto start = Clock::now();
            const std::string outcome = loads.runOne(route, std::chrono::seconds(20));
            slowest_ = std::max<std::chrono::duration<double>>(slowest_, Clock::now() - start);
            if (outcome != "success")
                faults_.push_back("the first load after an outage ended with " + outcome);
        }
        next_ = Clock::now() + std::chrono::seconds(3);
    }

    std::size_t count() const { return count_; }
    /// The maximum duration of the first load after an outage.
    std::chrono::duration<double> slowest() const { return slowest_; }
    const std::vector<std::string>& faults() const { return faults_; }

private:
    std::vector<std::size_t> routes_;
    Clock::time_point next_ = Clock::now();
    std::size_t count_ = 0;
    std::chrono::duration<double> slowest_{0};
    std::vector<std::string> faults_;
};

void printTable(const std::vector<Route>& routes, const std::vector<Outcomes>& outcomes,
                const std::vector<RouteCounts>& counts) {
    std::set<std::string> names;
    for (const Outcomes& each : outcomes) {
        for (const auto& [name, count] : each) names.insert(name);
    }
    std::printf("\n%-22s %8s", "route", "loads");
    for (const std::string& name : names) std::printf(" %10s", name.c_str());
    std::printf(" %11s %8s\n", "connections", "faults");
    const auto row = [&names](const char* title, const Outcomes& each, const RouteCounts& count) {
        std::size_t all = 0;
        for (const auto& [name, times] : each) all += times;
        std::printf("%-22s %8zu", title, all);
        for (const std::string& name : names) {
            const auto found = each.find(name);
            std::printf(" %10zu", found == each.end() ? 0 : found->second);
        }
        std::printf(" %11zu %8zu\n", count.connections, count.faults);
    };
    Outcomes sum;
    RouteCounts sumOfCounts;
    for (std::size_t i = 0; i < routes.size(); ++i) {
        row(routes[i].name.c_str(), outcomes[i], counts[i]);
        for (const auto& [name, times] : outcomes[i]) sum[name] += times;
        sumOfCounts.connections += counts[i].connections;
        sumOfCounts.faults += counts[i].faults;
    }
    row("all", sum, sumOfCounts);
}

/// Prints the resources before and after. Returns whether none remain.
bool printLeftovers(const char* when, const Holdings& before, const Holdings& after, std::size_t tolerated) {
    const auto difference = static_cast<double>(after.bytes) - static_cast<double>(before.bytes);
    std::printf("%s: %zu descriptors (%zu before), %zu threads (%zu before)", when, after.descriptors,
                before.descriptors, after.threads, before.threads);
    std::printf(", %+.1f KB of memory", difference / 1024);
#ifdef VRK_IS_SANITIZED
    // The allocator of a sanitizer does not report its use.
    tolerated = std::numeric_limits<std::size_t>::max();
#endif
    if (tolerated < std::numeric_limits<std::size_t>::max())
        std::printf(" (%zu KB tolerated)", tolerated / 1024);
    std::printf("\n");
    return after.descriptors <= before.descriptors && after.threads <= before.threads &&
           difference <= static_cast<double>(tolerated);
}

/// The resources after some loads, with their session and after its release.
struct Phase {
    Holdings inSession;
    Holdings afterSession;
};

Phase endPhase(Loads& loads, const Phase* before) {
    loads.closeConnections();
    const Holdings inSession = quietHoldings(before == nullptr ? nullptr : &before->inSession);
    loads.endSession();
    return {inSession, quietHoldings(before == nullptr ? nullptr : &before->afterSession)};
}

int soak(const Options& options) {
    const auto begin = Clock::now();
    const std::string whyNotPrivate = PrivateNetwork::enter();
    const bool isPrivate = whyNotPrivate.empty() && PrivateNetwork::connectFarNetwork();
    if (!isPrivate) std::printf("without names and outages: %s\n", whyNotPrivate.c_str());
    std::vector<Route> routes = soakRoutes(isPrivate);
    if (!options.route.empty()) {
        std::erase_if(routes, [&options](const Route& route) { return route.name != options.route; });
    }
    World world(routes, isPrivate, options.seed);
    if (routes.empty() || world.bases().empty()) {
        std::fprintf(stderr, "soak: there is no such route, or the servers did not start\n");
        return 1;
    }
    Loads loads(routes, world, options.seed);
    Outages outages(routes);
    const auto until = begin + std::chrono::duration_cast<Clock::duration>(options.time);
    const auto between = [&loads, &outages] { outages.happen(loads); };

    // After this many loads, pools and tables have their final size.
    constexpr std::size_t longestWarmUp = 20000;
    const std::size_t warmUp = std::min(options.loads / 4, longestWarmUp);
    loads.beginSession();
    loads.run(warmUp, until, options.atOnce, between);
    const Phase warm = endPhase(loads, nullptr);
    const auto warmAt = Clock::now();
    const std::size_t warmLoads = loads.startedCount();
    loads.beginSession();
    loads.run(options.loads - warmUp, until, options.atOnce, between);
    const std::chrono::duration<double> taken = Clock::now() - warmAt;
    const Phase after = endPhase(loads, &warm);

    printTable(routes, loads.outcomes(), world.end());
    std::printf("\nseed %llu; %zu loads, of which %zu to warm up; then %.0f loads a second for %.0f s\n",
                static_cast<unsigned long long>(options.seed), loads.startedCount(), warmLoads,
                static_cast<double>(loads.startedCount() - warmLoads) / taken.count(), taken.count());
    std::printf(
        "%zu outages, the first load after each within %.2f s; %zu loads sent again by their policy; "
        "latest end %.2f s %s its deadline\n",
        outages.count(), outages.slowest().count(), loads.retryCount(), std::abs(loads.latest().count()),
        loads.latest().count() > 0 ? "after" : "before");
    bool isGood =
        printLeftovers("while the session lives", warm.inSession, after.inSession, bytesToleratedInSession);
    isGood &= printLeftovers("after the session", warm.afterSession, after.afterSession, bytesTolerated);
    for (const auto* const faults : {&loads.violations(), &outages.faults()}) {
        constexpr std::size_t maxPrinted = 20;
        for (std::size_t i = 0; i < std::min(faults->size(), maxPrinted); ++i) {
            std::printf("FAULT: %s\n", (*faults)[i].c_str());
        }
        isGood &= faults->empty();
    }
    std::printf("%s\n", isGood ? "passed" : "FAILED");
    return isGood ? 0 : 1;
}

}  // namespace

int main(int count, char** words) {
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    const auto options = read(count, words);
    if (!options) {
        std::fprintf(
            stderr,
            "usage: soak [--loads N] [--minutes N] [--hours N] [--seed N] [--at-once N] [--route NAME]\n");
        return 2;
    }
    return soak(*options);
}
