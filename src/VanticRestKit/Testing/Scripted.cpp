#include <VanticRestKit/Core/NetworkServiceble.h>
#include <VanticRestKit/Testing/Scripted.h>

#include <utility>

namespace VanticRestKit::Testing {

// Defined here so that the library contains the only copy of the vtable.
TestContext::~TestContext() = default;

std::shared_ptr<Serviceable> serviceOver(std::shared_ptr<NetworkSession> session,
                                         Context::ServiceArguments arguments, LogError logError) {
    return NetworkServiceble::make({.with = std::move(arguments.withURLRequest),
                                    .and_ = std::move(session),
                                    .logError = std::move(logError)});
}

}  // namespace VanticRestKit::Testing
