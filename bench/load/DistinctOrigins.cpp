#include "DistinctOrigins.h"

#include "../support/Measure.h"

#include <VanticRestKit/platform/http/URLSession.h>

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <semaphore>
#include <string>

namespace VanticRestKit::bench {

namespace {

/// A URL with a different address for each number, on a port where no server is expected.
URLRequest requestTo(std::size_t number) {
    constexpr std::size_t perRow = 250;
    const std::string host =
        "127.1." + std::to_string(number / perRow) + "." + std::to_string(1 + number % perRow);
    return URLRequest(URL::make("http://" + host + ":1/").value());
}

/// The processor time per load for `count` simultaneous loads in a new session.
double costOfLoads(std::size_t count) {
    // Never destroyed, because a completion may still be inside `release` when the wait is over.
    static std::counting_semaphore<>& ended = *new std::counting_semaphore<>(0);
    const double before = processorTime();
    {
        const auto session = URLSession::make({});
        for (std::size_t i = 0; i < count; ++i) {
            session
                ->dataTask(requestTo(i),
                           [](auto, auto, const std::optional<Error>& error) {
                               if (!error) std::exit(1);
                               ended.release();
                           })
                ->resume();
        }
        for (std::size_t i = 0; i < count; ++i) ended.acquire();
    }
    return (processorTime() - before) / static_cast<double>(count);
}

}  // namespace

void distinctOrigins(std::size_t few, std::size_t many, std::size_t rounds) {
    costOfLoads(few);
    double least = 1;
    double leastOfFew = 1;
    for (std::size_t round = 0; round < rounds; ++round) {
        leastOfFew = std::min(leastOfFew, costOfLoads(few));
        least = std::min(least, costOfLoads(many));
    }
    report("one of " + std::to_string(many) + " loads to distinct origins, processor time to one of " +
               std::to_string(few),
           figure(least / leastOfFew), "1.5", "1.2",
           figure(least * 1e6, 1) + " us a load, " + figure(leastOfFew * 1e6, 1) + " us with the few");
}

}  // namespace VanticRestKit::bench
