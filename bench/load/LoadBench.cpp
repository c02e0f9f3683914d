// The cost of loads, relative to libcurl's multi interface in the same run; of creating a resource; of ten thousand
// loads in flight; the cost and benefit of the cache; and whether loads to many origins cost more. The servers are
// separate processes, so their work is not counted.
//   load_bench [--quick] [--only TEXT]    TEXT: only the ways of loading whose names contain it

#include "../support/Measure.h"
#include "CacheCosts.h"
#include "DistinctOrigins.h"
#include "Loads.h"
#include "RawLoads.h"
#include "Server.h"

#include <support/Certificates.h>
#include <support/Nghttpx.h>
#include <VanticRestKit/Core/Context.h>
#include <VanticRestKit/Core/NetworkActivityCounter.h>
#include <VanticRestKit/Core/NetworkServiceble.h>
#include <VanticRestKit/Core/ObservableContext.h>
#include <VanticRestKit/Core/RequestObserver.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/platform/http/URLSession.h>

#include <sched.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <memory>
#include <optional>
#include <semaphore>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace VanticRestKit::bench {

namespace {

/// About two kilobytes, like a small response.
std::string sampleBody() {
    std::string body = "[";
    for (int i = 0; i < 30; ++i)
        body += "\"https://pictures.example.test/zx1000a/" + std::to_string(100'000 + i) + ".jpg\",";
    body.back() = ']';
    return body;
}

double wallTime() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

/// A value of /proc/self/status, such as "Threads" or "VmHWM".
long statusValue(const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(name + ":")) return std::atol(line.c_str() + name.size() + 1);
    }
    return -1;
}

/// Pins this process, and the threads and processes that it starts, to one processor. Otherwise the scheduler's
/// placement and the state of the processors change the figures of either side by a factor of up to four.
void keepTo(std::size_t processor) {
    cpu_set_t one;
    CPU_ZERO(&one);
    CPU_SET(processor % static_cast<std::size_t>(sysconf(_SC_NPROCESSORS_ONLN)), &one);
    sched_setaffinity(0, sizeof one, &one);
}

std::string addressOf(const Server& server, const std::string& path) {
    return "http://127.0.0.1:" + std::to_string(server.port()) + path;
}

class CountingObserver final : public RequestObserver {
    void requestEnded(const RequestMetrics& request) override { bytes_ += request.bodyBytesReceived; }

    std::atomic<std::int64_t> bytes_ = 0;
};

class ObservedContext final : public SessionContext, public ObservableContext {
public:
    using SessionContext::SessionContext;
    std::shared_ptr<RequestObserver> observer() const override { return observer_; }

private:
    std::shared_ptr<RequestObserver> observer_ = std::make_shared<CountingObserver>();
};

struct Cost {
    double processor;
    double wall;
};

Cost leastOf(const Cost& a, const Cost& b) {
    return {std::min(a.processor, b.processor), std::min(a.wall, b.wall)};
}

template <class Run>
Cost costOf(Run run) {
    const double processor = processorTime();
    const double wall = wallTime();
    run();
    return {processorTime() - processor, wallTime() - wall};
}

struct Way {
    std::string name;
    std::size_t atOnce;
    const char* budget;
    const char* goal;
};

/// Runs both sides alternately, each with its own connections, which are open from the start.
void compare(const Way& way, RawLoads& raw, Loads& loads, std::size_t count, std::size_t rounds) {
    raw.run(count, way.atOnce);
    loads.run(count, way.atOnce);
    Times processor;
    Cost ours{1e9, 1e9};
    Cost theirs{1e9, 1e9};
    for (std::size_t round = 0; round < rounds; ++round) {
        const Cost raws = costOf([&] { raw.run(count, way.atOnce); });
        const Cost own = costOf([&] { loads.run(count, way.atOnce); });
        processor.baseline.push_back(raws.processor);
        processor.runs.push_back(own.processor);
        theirs = leastOf(theirs, raws);
        ours = leastOf(ours, own);
    }
    const auto loadsCount = static_cast<double>(count);
    report("load " + way.name + ", processor time to raw libcurl's",
           figure(ours.processor / theirs.processor), way.budget, way.goal,
           figure(ours.processor / loadsCount * 1e6, 1) + " us a load; median " + figure(processor.ratio()));
    report("load " + way.name + ", loads in a second", figure(loadsCount / ours.wall, 0), "", "",
           "raw libcurl " + figure(loadsCount / theirs.wall, 0));
}

/// Runs the same loads in two forms, alternately.
void compareForms(const std::string& address, std::size_t count, std::size_t rounds) {
    Loads& plain = *new Loads(URLSession::make({}), address);
    Loads& awaited = *new Loads(URLSession::make({}), address, Form::awaited);
    plain.run(count, 1);
    awaited.run(count, 1);
    Times processor;
    double least = 1e9;
    double leastPlain = 1e9;
    for (std::size_t round = 0; round < rounds; ++round) {
        processor.baseline.push_back(costOf([&] { plain.run(count, 1); }).processor);
        processor.runs.push_back(costOf([&] { awaited.run(count, 1); }).processor);
        leastPlain = std::min(leastPlain, processor.baseline.back());
        least = std::min(least, processor.runs.back());
    }
    report("awaited load, processor time to a plain load's", figure(least / leastPlain), "", "1.02",
           "median " + figure(processor.ratio()));
}

/// Compares loads with a service created by a context, with one created by the library for the context, and with an
/// observed one.
void compareObservers(const std::string& address, std::size_t count, std::size_t rounds) {
    const auto plain = std::make_shared<SessionContext>(URLSession::make({}));
    const auto observed = std::make_shared<ObservedContext>(URLSession::make({}));
    Loads& service = *new Loads(plain, address, false);
    Loads& absent = *new Loads(plain, address, true);
    Loads& present = *new Loads(observed, address, true);
    const auto times = interleaved(rounds, {{"service", [&] { service.run(count, 1); }},
                                            {"absent", [&] { absent.run(count, 1); }},
                                            {"present", [&] { present.run(count, 1); }}});
    const auto row = [&](const std::string& name, const Times& own, const char* budget) {
        report(name + ", processor time to one of a service alone", figure(own.ratio(), 3), budget, "",
               "of the least times " + figure(own.least() / times[0].least(), 3));
    };
    row("load of a context without an observer", times[1], "1.01");
    row("load of a context with an observer", times[2], "");
}

class BenchContext : public Context {
public:
    URL baseURL() const override { return URL::make("https://api.vantic.example.test/v2").value(); }
    std::map<std::string, std::string> HTTPHeaderFields() const override {
        return {{"X-Api-Key", "1234567890abcdef"}, {"Accept-Language", "en"}};
    }
};

struct SampleURI {
    std::string path() const { return "videos"; }
    std::vector<URLQueryItem> queryItems = {{{"ids", "ZX1000A001S00,ZX1000A002S00"}, {"form", "full"}}};
};

void makingAResource(std::size_t count) {
    const BenchContext context;
    const long threads = statusValue("Threads");
    double least = 1;
    for (int round = 0; round < 20; ++round) {
        const double before = processorTime();
        for (std::size_t i = 0; i < count; ++i) {
            const auto resource = Resource<Texts>::make({.with = SampleURI{}}, context);
            if (!resource) std::exit(1);
            keep(resource);
        }
        least = std::min(least, (processorTime() - before) / static_cast<double>(count));
    }
    report("making a Resource of a route, in microseconds", figure(least * 1e6), "2", "", "");
    report("making a Resource, threads that this started", std::to_string(statusValue("Threads") - threads),
           "0", "", "");
}

/// Starts all `count` loads before the first one is answered.
void inFlight(Server& server, std::size_t count, Form form) {
    const std::string name = std::to_string(count) + (form == Form::awaited ? " awaited loads" : " loads");
    const long memory = statusValue("VmRSS");
    const long threads = statusValue("Threads");
    // Counts the requests that begin, by the network activity indicator.
    struct Started {
        std::atomic<std::size_t> number = 0;
        std::binary_semaphore all{0};
    };
    Started& started = *new Started;
    NetworkActivityCounter::setIndicator([&started, count](bool) {
        if (++started.number == count) started.all.release();
    });
    Loads& loads = *new Loads(URLSession::make({}), addressOf(server, "/held"), form);
    loads.begin(count, count);
    started.all.acquire();
    const long peakThreads = statusValue("Threads") - threads;
    server.release();
    loads.wait();
    NetworkActivityCounter::setIndicator({});
    report(name + " in flight, threads with those of the pool", std::to_string(peakThreads), "", "", "");
    const double peak = static_cast<double>(statusValue("VmHWM") - memory);
    report(name + " in flight, memory at the peak in MB", figure(peak / 1024, 1), "", "",
           figure(peak / static_cast<double>(count), 1) + " KB for each");
}

}  // namespace

}  // namespace VanticRestKit::bench

int main(int count, char** arguments) {
    using namespace VanticRestKit;
    using namespace VanticRestKit::bench;
    bool isQuick = false;
    std::string_view only;
    for (int i = 1; i < count; ++i) {
        const std::string_view argument = arguments[i];
        if (argument == "--quick") isQuick = true;
        if (argument == "--only" && i + 1 < count) only = arguments[++i];
    }
    const std::size_t loads = isQuick ? 200 : 500;
    const std::size_t rounds = isQuick ? 3 : 60;

    // Starts the server processes first, because forking with threads is not safe.
    keepTo(1);
    Server server(sampleBody());
    Server holding(sampleBody());
    Server holdingAwaited(sampleBody());
    const test::CertificateAuthority root;
    const test::TemporaryFile roots(root.pem());
    const test::Nghttpx http2(server.port(), root.issue());
    if (!http2.isRunning()) return 1;
    keepTo(0);
    curl_global_init(CURL_GLOBAL_DEFAULT);

    if (only.empty()) {
        makingAResource(isQuick ? 100 : 5000);
        inFlight(holding, 10'000, Form::plain);
        inFlight(holdingAwaited, 10'000, Form::awaited);
        distinctOrigins(500, 8000, isQuick ? 2 : 10);
    }

    URLSessionConfiguration wide;
    wide.caBundlePath = roots.path();
    wide.httpMaximumConnectionsPerHost = 64;
    URLSessionConfiguration narrow = wide;
    narrow.httpMaximumConnectionsPerHost = 6;
    const std::string http1Address = addressOf(server, "/sample");
    const std::string http2Address = "https://127.0.0.1:" + std::to_string(http2.port()) + "/sample";
    if (only.empty()) compareForms(http1Address, loads, rounds);
    if (std::string_view("observer").find(only) != std::string_view::npos) {
        compareObservers(http1Address, loads, rounds);
    }
    if (std::string_view("cache").find(only) != std::string_view::npos) {
        cacheCosts(addressOf(server, ""), loads, rounds);
        lookUps(isQuick ? 10'000 : 100'000, isQuick ? 3 : 20);
    }
    const auto compared = [&](const Way& way, const RawLoads::Settings& settings,
                              const URLSessionConfiguration& configuration) {
        if (way.name.find(only) == std::string::npos) return;
        RawLoads raw(settings);
        compare(way, raw, *new Loads(URLSession::make(configuration), settings.url), loads, rounds);
    };
    const RawLoads::Settings overSix{.url = http1Address, .connections = 6};
    const RawLoads::Settings overMany{.url = http1Address, .connections = 64};
    const RawLoads::Settings overHTTP2{.url = http2Address, .caBundlePath = roots.path(), .connections = 6};
    compared({"one at a time", 1, "1.6", "1.2"}, overSix, narrow);
    compared({"over HTTP/1.1, 64 at once over 6 connections", 64, "1.5", "1.2"}, overSix, narrow);
    compared({"over HTTP/1.1, 64 at once over 64 connections", 64, "1.5", "1.2"}, overMany, wide);
    compared({"over HTTP/2, 64 at once", 64, "1.4", "1.2"}, overHTTP2, narrow);
}
