#pragma once

#include <VanticRestKit/Core/Context.h>
#include <VanticRestKit/Core/Serviceable.h>

#include <functional>
#include <memory>

#include "operations/CommonOptions.h"

namespace vantic {

/// Sends a request that the library has built, or only records it.
using Serve = std::function<std::shared_ptr<VanticRestKit::Serviceable>(VanticRestKit::URLRequest)>;

/// The context of the command line.
class Host : public virtual VanticRestKit::Context {
public:
    Host(CommonOptions common, Serve serve);

    VanticRestKit::URL baseURL() const override;
    std::map<std::string, std::string> HTTPHeaderFields() const override;
    double requestTimeout() const override;
    std::shared_ptr<VanticRestKit::Serviceable> service(ServiceArguments arguments) const override;

private:
    CommonOptions common_;
    Serve serve_;
};

}  // namespace vantic
