// A host that performs a single task, started by device_bench.
//   device_library first URL                       sends one request
//   device_library home URL                        loads a home screen, keeps it, and prints the memory of the process
//   device_library connections URL COUNT ROOTS     prints the memory with one idle connection and then with COUNT;
//                                                  ROOTS: a file, or "" for http

#include "HostMemory.h"

#include <VanticRestKit/Core/Context.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Categories/Category.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Link/LinkEndpoints.h>
#include <VanticRestKit/lumeno/Video/Video.h>
#include <VanticRestKit/platform/http/URLSession.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <semaphore>
#include <string>
#include <string_view>
#include <utility>

using namespace VanticRestKit;

namespace {

class HostContext : public virtual Context {
public:
    explicit HostContext(const char* baseURL) : baseURL_(URL::make(baseURL).value()) {}
    URL baseURL() const override { return baseURL_; }

private:
    URL baseURL_;
};

template <class T>
Result<T, LoaderError> loaded(const Resource<T>& resource) {
    std::optional<Result<T, LoaderError>> outcome;
    // Never destroyed, because the completion may still be inside `release` when the wait is over.
    auto& ended = *new std::binary_semaphore(0);
    resource.load({.with = [&](Result<T, LoaderError> result) {
        outcome = std::move(result);
        ended.release();
    }});
    ended.acquire();
    return *std::move(outcome);
}

int sendFirstRequest(const char* baseURL) {
    static_cast<void>(loaded(Endpoint::Video({.houseNumber = "ZX1"}, HostContext(baseURL)).value()));
    return 0;
}

int holdHome(const char* baseURL) {
    const auto home =
        loaded(Endpoint::Resource<Category>({.withHref = "home"}, HostContext(baseURL)).value());
    if (!home || home->collections.empty()) return 1;
    bench::printHostMemory();
    return 0;
}

/// Sends `count` requests at once and waits for their responses.
void load(URLSession& session, const std::string& url, int count) {
    auto& ended = *new std::counting_semaphore<>(0);
    for (int i = 0; i < count; ++i) {
        const auto completion = [&ended](const auto&, const auto&, const std::optional<Error>& error) {
            if (error) std::exit(1);
            ended.release();
        };
        session.dataTask(URLRequest(URL::make(url).value()), completion)->resume();
    }
    for (int i = 0; i < count; ++i) ended.acquire();
}

int keepConnections(const std::string& url, int count, const std::string& roots) {
    URLSessionConfiguration configuration;
    configuration.httpMaximumConnectionsPerHost = count;
    configuration.httpVersionPreference = HTTPVersionPreference::http1Only;
    if (!roots.empty()) configuration.caBundlePath = roots;
    const auto session = URLSession::make(configuration);
    load(*session, url, 1);
    bench::printHostMemory();
    load(*session, url + "/together/" + std::to_string(count), count);
    bench::printHostMemory();
    return 0;
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 3) return 2;
    const std::string_view task = arguments[1];
    if (task == "first") return sendFirstRequest(arguments[2]);
    if (task == "home") return holdHome(arguments[2]);
    if (task == "connections" && count > 4) {
        return keepConnections(arguments[2], std::atoi(arguments[3]), arguments[4]);
    }
    return 2;
}
