#include "HostContext.h"

#include <VanticRestKit/Core/NetworkError.h>

#include <utility>

namespace demo {

using namespace VanticRestKit;

HostContext::HostContext(URL baseURL) : baseURL_(std::move(baseURL)) {}

LogError HostContext::logError() const {
    return [reports = reports_](const Error& error) {
        const auto* networkError = error.as<NetworkError>();
        const std::lock_guard lock(reports->mutex);
        reports->last = networkError ? networkError->errorMessage() : error.localizedDescription();
    };
}

std::string HostContext::takeReport() const {
    const std::lock_guard lock(reports_->mutex);
    return std::exchange(reports_->last, {});
}

}  // namespace demo
