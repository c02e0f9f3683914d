#pragma once

#include <VanticRestKit/trelvo/Common/TrelvoContext.h>

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "user/RequestWatch.h"

namespace vantic {

/// Decorates a context, which must outlive this object, and reports all its requests to a watch.
class WatchedContext final : public VanticRestKit::TrelvoContext {
public:
    WatchedContext(const VanticRestKit::TrelvoContext& context, std::shared_ptr<RequestWatch> watch);

    std::optional<std::string> uid() const override { return context_.uid(); }
    VanticRestKit::SourceSystem source() const override { return context_.source(); }
    VanticRestKit::URL baseURL() const override { return context_.baseURL(); }
    std::map<std::string, std::string> HTTPHeaderFields() const override {
        return context_.HTTPHeaderFields();
    }
    double requestTimeout() const override { return context_.requestTimeout(); }
    VanticRestKit::LogError logError() const override { return context_.logError(); }
    std::optional<VanticRestKit::URLRequest> generateURLRequest(URLRequestArguments arguments) const override;
    std::shared_ptr<VanticRestKit::Serviceable> service(ServiceArguments arguments) const override;

private:
    const VanticRestKit::TrelvoContext& context_;
    std::shared_ptr<RequestWatch> watch_;
};

}  // namespace vantic
