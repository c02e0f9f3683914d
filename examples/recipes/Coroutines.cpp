// Coroutines: loads in sequence and in parallel, a deadline and a stop token.
//   recipe_coroutines BASE-URL

#include "Host.h"

#include <VanticRestKit/Core/LoadAll.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Show/Show.h>
#include <VanticRestKit/lumeno/Show/ShowsIndex.h>
#include <VanticRestKit/platform/async/Task.h>

#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

using namespace VanticRestKit;
using namespace std::chrono_literals;

// The resource is created before the co_await expression: GCC 12 would destroy braced strings inside it twice.
Task<std::string> titleOf(const Context& host, std::string slug) {
    const auto resource = Endpoint::Show({.showSlugOrId = std::move(slug)}, host);
    const Result<Show, LoaderError> show = co_await resource->value({.deadline = 5s});
    co_return show ? show->title.value_or("Untitled") : "no show";
}

Task<std::string> stopped(const Context& host) {
    std::stop_source stop;
    stop.request_stop();
    const auto resource = Endpoint::Time(host);
    const Result<double, LoaderError> time = co_await resource->value({.stop = stop.get_token()});
    co_return time ? "not stopped" : time.error().localizedDescription();
}

Task<int> run(const Context& host) {
    std::vector<Task<std::string>> titles;
    for (const char* slug : {"harbour-lights", "night-ferry"}) titles.push_back(titleOf(host, slug));
    for (const std::string& title : co_await whenAll(std::move(titles))) std::printf("%s\n", title.c_str());

    const std::vector<Resource<double>> times(3, *Endpoint::Time(host));
    const auto all = loadAll(times, {.limit = 2});
    std::size_t good = 0;
    for (const Result<double, LoaderError>& time : co_await all.value({.deadline = 5s})) good += time ? 1 : 0;
    std::printf("%zu of %zu\n", good, times.size());

    std::printf("stopped: %s\n", (co_await stopped(host)).c_str());
    co_return good == times.size() ? 0 : 1;
}

int main(int argc, char** argv) {
    const auto host = recipes::Host::of(argc, argv);
    return host ? blockOn(run(*host)) : 2;
}
