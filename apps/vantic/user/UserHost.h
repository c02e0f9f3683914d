#pragma once

#include <VanticRestKit/trelvo/TrelvoContext.h>

#include <memory>

#include "operations/Host.h"
#include "user/RequestWatch.h"

namespace vantic {

/// The context that the command line gives to the client of the user data service.
class UserHost final : public Host, public VanticRestKit::TrelvoContext {
public:
    /// `uid`: empty where nobody is signed in.
    UserHost(CommonOptions common, std::optional<std::string> uid, Serve serve,
             std::shared_ptr<RequestWatch> watch);

    std::optional<std::string> uid() const override { return uid_; }
    VanticRestKit::SourceSystem source() const override { return VanticRestKit::SourceSystem::lumeno; }
    std::optional<VanticRestKit::URLRequest> generateURLRequest(URLRequestArguments arguments) const override;
    std::shared_ptr<VanticRestKit::Serviceable> service(ServiceArguments arguments) const override;

private:
    std::optional<std::string> uid_;
    std::shared_ptr<RequestWatch> watch_;
};

}  // namespace vantic
