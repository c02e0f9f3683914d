#include <VanticRestKit/Core/NetworkServiceble.h>
#include <VanticRestKit/Testing/Scripted.h>

#include <utility>

namespace VanticRestKit::Testing {

// Its table of virtual functions lies here.
TestContext::~TestContext() = default;

std::shared_ptr<Serviceable> serviceOver(std::shared_ptr<NetworkSession> session,
                                         Context::ServiceArguments arguments, LogError logError) {
    return NetworkServiceble::make({.with = std::move(arguments.withURLRequest),
                                    .and_ = std::move(session),
                                    .logError = std::move(logError)});
}

}  // namespace VanticRestKit::Testing
