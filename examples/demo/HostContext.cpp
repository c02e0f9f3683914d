#include "HostContext.h"

#include <VanticRestKit/Core/NetworkError.h>
#include <VanticRestKit/Core/NetworkServiceble.h>
#include <VanticRestKit/Core/NetworkSession.h>
#include <VanticRestKit/platform/http/URLSession.h>

#include <chrono>
#include <utility>

namespace demo {

using namespace VanticRestKit;

namespace {

// `requestTimeout` only limits the time without any transfer; a server that sends a byte now and then would keep the
// user waiting.
std::shared_ptr<NetworkSession> hostSession() {
    static const auto session = [] {
        auto configuration = URLSessionConfiguration::default_();
        configuration.timeoutIntervalForResource = std::chrono::minutes(5);
        return networkSession(URLSession::make(configuration));
    }();
    return session;
}

}  // namespace

HostContext::HostContext(URL baseURL) : baseURL_(std::move(baseURL)) {}

LogError HostContext::logError() const {
    return [reports = reports_](const Error& error) {
        const auto* networkError = error.as<NetworkError>();
        const std::lock_guard lock(reports->mutex);
        reports->last = networkError ? networkError->errorMessage() : error.localizedDescription();
    };
}

std::shared_ptr<Serviceable> HostContext::service(ServiceArguments arguments) const {
    return NetworkServiceble::make(
        {.with = std::move(arguments.withURLRequest), .and_ = hostSession(), .logError = logError()});
}

std::string HostContext::takeReport() const {
    const std::lock_guard lock(reports_->mutex);
    return std::exchange(reports_->last, {});
}

}  // namespace demo
