#include "Chapters.h"
#include "Loading.h"
#include "Printing.h"

#include <VanticRestKit/Core/NetworkError.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Video/Video.h>
#include <VanticRestKit/platform/http/cache/URLCache.h>

#include <chrono>

namespace demo {

using namespace VanticRestKit;

namespace {

constexpr const char* houseNumber = "HL0101";
constexpr const char* path = "v2/video/HL0101";

/// The error of a load; empty if the load succeeded.
std::optional<LoaderError> failureOf(const std::string& asked, const HostContext& context) {
    const auto resource = Endpoint::Video({.houseNumber = asked}, context);
    if (!resource) return std::nullopt;
    const auto outcome = loaded(*resource);
    return outcome ? std::nullopt : std::optional(outcome.error());
}

void print(const char* what, const std::optional<LoaderError>& error, const HostContext& context) {
    std::printf("  %s\n", what);
    if (!error) {
        std::printf("    no error\n");
        return;
    }
    printField("  message", error->localizedDescription());
    if (const auto* networkError = error->networkError()) {
        printField("  details", networkError->localizedDescription());
        printField("  code",
                   std::to_string(networkError->errorCode()) + (error->is404Error() ? ", not found" : ""));
    } else if (error->underlyingError()) {
        printField("  details", error->underlyingError()->localizedDescription());
    }
    printField("  reported", context.takeReport());
}

bool hasCode(const std::optional<LoaderError>& error, std::int64_t code) {
    const auto* networkError = error ? error->networkError() : nullptr;
    return networkError != nullptr && networkError->errorCode() == code;
}

/// The service stops shortly after it has confirmed this, so this repeats the request until it gets no response. A
/// response that arrives before that must not be reused from the cache.
std::optional<LoaderError> failureOfStoppedService(const HostContext& context) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    std::optional<LoaderError> error;
    do {
        URLCache::shared()->removeAllCachedResponses();
        error = failureOf(houseNumber, context);
    } while (!hasCode(error, -1004) && std::chrono::steady_clock::now() < deadline);
    return error;
}

}  // namespace

bool showFailures(const Stage& stage) {
    const HostContext& context = stage.context;
    const ServiceControl& service = stage.service;
    printHeading("Errors");
    const auto notFound = failureOf("NOSUCH", context);
    print("an unknown house number", notFound, context);

    bool agreed = service.addFault(path, R"("fault":"status","status":500)");
    const auto failing = failureOf(houseNumber, context);
    print("a service that fails", failing, context);

    agreed = service.addFault(path, R"("fault":"malformed")") && agreed;
    const auto noJSON = failureOf(houseNumber, context);
    print("a response that is not JSON", noJSON, context);

    agreed = service.stop() && agreed;
    const auto stopped = failureOfStoppedService(context);
    print("a service that was stopped", stopped, context);

    return agreed && notFound && notFound->is404Error() && hasCode(failing, 500) && noJSON &&
           noJSON->kind() == LoaderError::Kind::failedToDecode && hasCode(stopped, -1004);
}

}  // namespace demo
