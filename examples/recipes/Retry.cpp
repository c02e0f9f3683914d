// Retries while the service fails, and a sentence for the viewer if that does not help.
//   recipe_retry BASE-URL

#include "Host.h"

#include <VanticRestKit/Core/ErrorAdvice.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/Core/Retrying.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>

#include <chrono>
#include <cstdio>
#include <memory>
#include <utility>

using namespace VanticRestKit;
using namespace std::chrono_literals;

class RetryingHost final : public recipes::Host {
public:
    explicit RetryingHost(const recipes::Host& host) : Host(host) {}

    std::shared_ptr<Serviceable> service(ServiceArguments arguments) const override {
        const URLRequest request = arguments.withURLRequest;
        return retrying(
            {.service = Context::service(std::move(arguments)), .request = request, .policy = policy_});
    }

    LogError logError() const override {
        return [](const Error& error) { std::printf("failed: %s\n", nameOf(categoryOf(error))); };
    }

private:
    // One policy for all requests, so that they share its budget.
    const RetryPolicy policy_{.attempts = 4, .firstPause = 100ms};
};

int main(int argc, char** argv) {
    const auto host = recipes::Host::of(argc, argv);
    if (!host) return 2;
    const auto time = Endpoint::Time(RetryingHost(*host));
    const Result<double, LoaderError> result = time->wait({.deadline = 10s});
    if (!result) {
        std::printf("%s\n", adviceOn(result.error()).sentence.c_str());
        return 1;
    }
    std::printf("%.0f\n", *result);
    return 0;
}
