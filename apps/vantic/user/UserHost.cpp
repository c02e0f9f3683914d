#include "user/UserHost.h"

#include <VanticRestKit/trelvo/Token/TokenURI.h>

namespace vantic {

using namespace VanticRestKit;

UserHost::UserHost(CommonOptions common, std::optional<std::string> uid, Serve serve,
                   std::shared_ptr<RequestWatch> watch)
    : Host(std::move(common), std::move(serve)), uid_(std::move(uid)), watch_(std::move(watch)) {}

// The client waits without end for a token that cannot be asked for, so that this is the last it lets see.
std::optional<URLRequest> UserHost::generateURLRequest(URLRequestArguments arguments) const {
    const bool isForToken = arguments.usingPath.value() == TokenURI().path();
    std::optional<URLRequest> request = Host::generateURLRequest(std::move(arguments));
    if (!request && isForToken) watch_->operationIsStuck();
    return request;
}

std::shared_ptr<Serviceable> UserHost::service(ServiceArguments arguments) const {
    return watch_->watched(Host::service(std::move(arguments)));
}

}  // namespace vantic
