#include "user/WatchedContext.h"

#include <VanticRestKit/trelvo/Token/TokenRoutes.h>

#include <utility>

namespace vantic {

using namespace VanticRestKit;

WatchedContext::WatchedContext(const TrelvoContext& context, std::shared_ptr<RequestWatch> watch)
    : context_(context), watch_(std::move(watch)) {}

std::optional<URLRequest> WatchedContext::generateURLRequest(URLRequestArguments arguments) const {
    const bool isForToken = arguments.usingPath.value() == TokenURI().path();
    std::optional<URLRequest> request = context_.generateURLRequest(std::move(arguments));
    if (!request && isForToken) watch_->operationIsStuck();
    return request;
}

std::shared_ptr<Serviceable> WatchedContext::service(ServiceArguments arguments) const {
    return watch_->watched(context_.service(std::move(arguments)));
}

}  // namespace vantic
