#pragma once

/// \file
/// `Loads`: the client of the soak test, which keeps many loads running and checks how each one ends.

#include "Routes.h"
#include "World.h"

#include <VanticRestKit/Core/NetworkSession.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/Core/Retrying.h>
#include <VanticRestKit/platform/http/URLSession.h>

#include <array>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <random>
#include <string>
#include <unordered_map>
#include <vector>

namespace VanticRestKit::test {

/// The number of loads of a route for each outcome.
using Outcomes = std::map<std::string, std::size_t>;

/// Starts loads in all forms, cancels some and gives others a short deadline. For the main thread, except the callbacks
/// of the loads.
class Loads {
public:
    using Clock = std::chrono::steady_clock;

    Loads(const std::vector<Route>& routes, const World& world, std::uint64_t seed);
    ~Loads();
    Loads(const Loads&) = delete;
    Loads& operator=(const Loads&) = delete;

    /// Keeps `atOnce` loads running until `count` more were started or `until` is reached, and waits for their ends.
    /// Calls `between` from time to time.
    void run(std::size_t count, Clock::time_point until, std::size_t atOnce,
             const std::function<void()>& between);

    /// Runs one load of `route` with its own idle timeout. Returns the category of its failure, or "success".
    std::string runOne(std::size_t route, std::chrono::duration<double> interval);

    /// Closes all connections but one, so that the remaining resources can be counted.
    void closeConnections();
    /// Create a new session and release it.
    void beginSession();
    void endSession();

    std::size_t startedCount() const noexcept { return started_; }
    const std::vector<Outcomes>& outcomes() const noexcept { return outcomes_; }
    /// The number of retries by the retry policy.
    std::size_t retryCount() const noexcept { return retries_; }
    /// The maximum time by which a load exceeded its deadline.
    std::chrono::duration<double> latest() const noexcept { return latest_; }
    /// The violations found, each with a description of its load.
    const std::vector<std::string>& violations() const noexcept { return violations_; }

private:
    struct Load;
    using LoadPointer = std::shared_ptr<Load>;
    using Outcome = Result<Data, LoaderError>;

    LoadPointer make(std::size_t route);
    void start(const LoadPointer& load);
    Resource<Data> resourceOf(const Load& load);
    void ended(const LoadPointer& load, std::string outcome, std::string story = {});
    void failed(const LoadPointer& load, const Error& error);
    std::size_t pickRoute();
    void cancelDue();
    void reap();
    void judge(const LoadPointer& load);
    void violated(const Load& load, const std::string& what);
    void waitForEnds(std::size_t atMost);
    std::uint64_t random(std::uint64_t last) { return numbers_() % (last + 1); }

    const std::vector<Route>& routes_;
    const std::vector<std::string> bases_;
    std::mt19937_64 numbers_;
    URLSessionConfiguration configuration_;
    std::shared_ptr<URLSession> session_;
    std::shared_ptr<NetworkSession> network_;
    RetryPolicy retryPolicy_;
    std::vector<std::size_t> frequencies_;

    std::unordered_map<std::uint64_t, LoadPointer> underWay_;
    std::multimap<Clock::time_point, LoadPointer> toCancel_;
    std::size_t started_ = 0;
    std::vector<Outcomes> outcomes_;
    std::chrono::duration<double> latest_{0};
    std::atomic<std::size_t> retries_ = 0;
    std::vector<std::string> violations_;

    // Shared with the loads.
    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<LoadPointer> ended_;
};

}  // namespace VanticRestKit::test
