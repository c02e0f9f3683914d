// Futures and blocking loads, for tools: a future of the library, a std::future, and a missed deadline.
//   recipe_futures BASE-URL

#include "Host.h"

#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/platform/async/StdFuture.h>

#include <chrono>
#include <cstdio>

using namespace VanticRestKit;
using namespace std::chrono_literals;

int main(int argc, char** argv) {
    const auto host = recipes::Host::of(argc, argv);
    if (!host) return 2;
    const auto time = Endpoint::Time(*host);

    auto ours = time->future({.deadline = 5s});
    auto standard = toStdFuture(time->future());
    const Result<double, LoaderError> first = ours.get();
    const Result<double, LoaderError> second = standard.get();
    const Result<double, LoaderError> third = time->wait({.deadline = 5s});
    if (!first || !second || !third) return 1;
    std::printf("%.0f\n", *third);

    const Result<double, LoaderError> late = time->wait({.deadline = 0s});
    std::printf("late: %s\n", late.error().localizedDescription().c_str());
    return late ? 1 : 0;
}
