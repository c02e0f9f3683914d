#pragma once

#include <VanticRestKit/Core/Context.h>

#include <map>
#include <memory>
#include <mutex>
#include <string>

namespace demo {

/// What the host says about the service, and where it hears of failed requests.
class HostContext : public virtual VanticRestKit::Context {
public:
    explicit HostContext(VanticRestKit::URL baseURL);

    VanticRestKit::URL baseURL() const override { return baseURL_; }
    std::map<std::string, std::string> HTTPHeaderFields() const override { return {{"X-Host", "demo"}}; }
    double requestTimeout() const override { return 5.0; }
    VanticRestKit::LogError logError() const override;
    /// Over a session of the host's own, whose loads take five minutes at most.
    std::shared_ptr<VanticRestKit::Serviceable> service(ServiceArguments arguments) const override;

    /// The line of the last report, which is forgotten then; no text where there was none.
    std::string takeReport() const;

private:
    // Reports come on the delegate queue, and may come when the context is gone.
    struct Reports {
        std::mutex mutex;
        std::string last;
    };

    VanticRestKit::URL baseURL_;
    std::shared_ptr<Reports> reports_ = std::make_shared<Reports>();
};

}  // namespace demo
