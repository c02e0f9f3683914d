#include <VanticRestKit/Core/ResourceArguments.h>

#include <VanticRestKit/Core/Context.h>
#include <VanticRestKit/Core/NetworkServiceble.h>

#include <utility>

namespace VanticRestKit::detail {

std::optional<URLRequest> requestFor(const ResourceURI& route, const Context& context) {
    return context.generateURLRequest({.usingPath = route.path(),
                                       .queryItems = route.queryItems(),
                                       .additionalHTTPHeaders = context.HTTPHeaderFields(),
                                       .httpMethod = route.httpMethod(),
                                       .timeout = context.requestTimeout(),
                                       .andPostData = route.postData()});
}

std::shared_ptr<Serviceable> serviceFor(const ResourceURI& route, const Context& context) {
    std::optional<URLRequest> request = requestFor(route, context);
    if (!request) return nullptr;
    return context.service({.withURLRequest = *std::move(request)});
}

std::shared_ptr<Serviceable> serviceFor(URLRequest request) {
    return NetworkServiceble::make({.with = std::move(request), .logError = nullptr});
}

std::shared_ptr<Serviceable> serviceFor(URL url) {
    return NetworkServiceble::make({.with = std::move(url), .logError = nullptr});
}

}  // namespace VanticRestKit::detail
