// Drives the library over bad networks for a given number of loads or a given time. Ends with 0 if every load ended once,
// in time and as it may, and if nothing is left behind. scripts/soak builds and runs it.

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

// What the allocator's own bookkeeping may differ by. A leak of a byte in each of 200,000 loads is more.
constexpr std::size_t bytesTolerated = 128 * 1024;
// A session keeps up to 128 of libcurl's handles with their buffers for later loads.
constexpr std::size_t bytesToleratedInSession = 16 * 1024 * 1024;

struct Wishes {
    std::size_t loads = std::numeric_limits<std::size_t>::max();
    std::chrono::duration<double> time{std::chrono::hours(24 * 365)};
    std::uint64_t seed = 1;
    std::size_t atOnce = 96;
    /// The only route to be taken; empty for all.
    std::string route{};
};

std::optional<Wishes> read(int count, char** words) {
    Wishes wishes;
    bool isLimited = false;
    for (int i = 1; i + 1 < count; i += 2) {
        const std::string_view name = words[i];
        if (name == "--route") {
            wishes.route = words[i + 1];
            continue;
        }
        char* end = nullptr;
        const double number = std::strtod(words[i + 1], &end);
        if (*end != 0 || number <= 0) return std::nullopt;
        isLimited |= name != "--seed" && name != "--at-once";
        if (name == "--loads") {
            wishes.loads = static_cast<std::size_t>(number);
        } else if (name == "--minutes") {
            wishes.time = std::chrono::duration<double, std::ratio<60>>(number);
        } else if (name == "--hours") {
            wishes.time = std::chrono::duration<double, std::ratio<3600>>(number);
        } else if (name == "--seed") {
            wishes.seed = static_cast<std::uint64_t>(number);
        } else if (name == "--at-once") {
            wishes.atOnce = static_cast<std::size_t>(number);
        } else {
            return std::nullopt;
        }
    }
    return isLimited && count % 2 == 1 ? std::optional(wishes) : std::nullopt;
}

/// Takes the network away and brings it back with another address of this machine, now and then.
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
        // 10.9.0.2 is the other end of the cable.
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
    /// How long the first load after an outage took at most.
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

/// Prints what was held before and after. Whether nothing is left.
bool printLeftovers(const char* when, const Holdings& before, const Holdings& after, std::size_t tolerated) {
    const auto difference = static_cast<double>(after.bytes) - static_cast<double>(before.bytes);
    std::printf("%s: %zu descriptors (%zu before), %zu threads (%zu before)", when, after.descriptors,
                before.descriptors, after.threads, before.threads);
    std::printf(", %+.1f KB of memory", difference / 1024);
#ifdef VRK_IS_SANITIZED
    // Its allocator does not tell.
    tolerated = std::numeric_limits<std::size_t>::max();
#endif
    if (tolerated < std::numeric_limits<std::size_t>::max())
        std::printf(" (%zu KB tolerated)", tolerated / 1024);
    std::printf("\n");
    return after.descriptors <= before.descriptors && after.threads <= before.threads &&
           difference <= static_cast<double>(tolerated);
}

/// What was held after some loads, with their session and without it.
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

int soak(const Wishes& wishes) {
    const auto begin = Clock::now();
    const std::string whyNotPrivate = PrivateNetwork::enter();
    const bool isPrivate = whyNotPrivate.empty() && PrivateNetwork::layCable();
    if (!isPrivate) std::printf("without names and outages: %s\n", whyNotPrivate.c_str());
    std::vector<Route> routes = soakRoutes(isPrivate);
    if (!wishes.route.empty()) {
        std::erase_if(routes, [&wishes](const Route& route) { return route.name != wishes.route; });
    }
    World world(routes, isPrivate, wishes.seed);
    if (routes.empty() || world.bases().empty()) {
        std::fprintf(stderr, "soak: there is no such route, or the servers did not start\n");
        return 1;
    }
    Loads loads(routes, world, wishes.seed);
    Outages outages(routes);
    const auto until = begin + std::chrono::duration_cast<Clock::duration>(wishes.time);
    const auto between = [&loads, &outages] { outages.happen(loads); };

    // Pools and tables have their final size after that.
    constexpr std::size_t longestWarmUp = 20000;
    const std::size_t warmUp = std::min(wishes.loads / 4, longestWarmUp);
    loads.beginSession();
    loads.run(warmUp, until, wishes.atOnce, between);
    const Phase warm = endPhase(loads, nullptr);
    const auto warmAt = Clock::now();
    const std::size_t warmLoads = loads.startedCount();
    loads.beginSession();
    loads.run(wishes.loads - warmUp, until, wishes.atOnce, between);
    const std::chrono::duration<double> taken = Clock::now() - warmAt;
    const Phase after = endPhase(loads, &warm);

    printTable(routes, loads.outcomes(), world.end());
    std::printf("\nseed %llu; %zu loads, of which %zu to warm up; then %.0f loads a second for %.0f s\n",
                static_cast<unsigned long long>(wishes.seed), loads.startedCount(), warmLoads,
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
    const auto wishes = read(count, words);
    if (!wishes) {
        std::fprintf(
            stderr,
            "usage: soak [--loads N] [--minutes N] [--hours N] [--seed N] [--at-once N] [--route NAME]\n");
        return 2;
    }
    return soak(*wishes);
}
