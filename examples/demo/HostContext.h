#pragma once

#include <VanticRestKit/Core/Context.h>

#include <map>
#include <memory>
#include <mutex>
#include <string>

namespace demo {

/// The host's configuration of the service, and its hook for failed requests.
class HostContext : public virtual VanticRestKit::Context {
public:
    explicit HostContext(VanticRestKit::URL baseURL);

    VanticRestKit::URL baseURL() const override { return baseURL_; }
    std::map<std::string, std::string> HTTPHeaderFields() const override { return {{"X-Host", "demo"}}; }
    double requestTimeout() const override { return 5.0; }
    VanticRestKit::LogError logError() const override;
    /// Uses the host's own session, whose loads take at most five minutes.
    std::shared_ptr<VanticRestKit::Serviceable> service(ServiceArguments arguments) const override;

    /// Returns and clears the last report; an empty string if there is none.
    std::string takeReport() const;

private:
    // Reports arrive on the delegate queue, possibly after the context has been destroyed.
    struct Reports {
        std::mutex mutex;
        std::string last;
    };

    VanticRestKit::URL baseURL_;
    std::shared_ptr<Reports> reports_ = std::make_shared<Reports>();
};

}  // namespace demo
