// A host whose own coroutines await the library's tasks.

#include <VanticRestKit/platform/async/Task.h>
#include <VanticRestKit/VanticRestKit.h>

#include <cstdint>
#include <cstdio>
#include <stop_token>
#include <tuple>
#include <utility>
#include <vector>

using namespace VanticRestKit;

namespace {

// An address without a server, so that a load fails with a transport error.
class Nowhere : public virtual Context {
public:
    URL baseURL() const override { return *URL::make("http://127.0.0.1:1"); }
};

Task<std::int64_t> errorCodeOf(Resource<Video> resource) {
    const Result<Video, LoaderError> outcome = co_await resource.value();
    const auto* error = outcome ? nullptr : outcome.error().underlyingError()->as<NetworkError>();
    co_return error != nullptr ? error->errorCode() : 0;
}

Task<> nothing() { co_return; }

// Tasks of different types, one of them without a value.
Task<std::int64_t> codeNextToNothing(Resource<Video> resource) {
    const auto values = co_await whenAll(errorCodeOf(std::move(resource)), nothing());
    co_return std::get<0>(values);
}

std::vector<Task<std::int64_t>> both(const Resource<Video>& resource) {
    std::vector<Task<std::int64_t>> tasks;
    tasks.push_back(errorCodeOf(resource));
    tasks.push_back(errorCodeOf(resource));
    return tasks;
}

int check(const char* what, bool holds) {
    std::printf("%s: %s\n", what, holds ? "yes" : "no");
    return holds ? 0 : 1;
}

}  // namespace

int main() {
    const auto resource = Endpoint::Video({.houseNumber = "X1"}, Nowhere());
    if (!resource) return check("makes a resource", false);
    const std::vector<std::int64_t> failures{-1004, -1004};
    return check("waits for one task", blockOn(errorCodeOf(*resource)) == -1004) +
           check("waits for all tasks", blockOn(whenAll(both(*resource))) == failures) +
           check("waits for any task", blockOn(whenAny(both(*resource), std::stop_source())).value == -1004) +
           check("waits for tasks of different types", blockOn(codeNextToNothing(*resource)) == -1004);
}
