#include <VanticRestKit/Core/ResourceArguments.h>

#include <VanticRestKit/Core/Context.h>
#include <VanticRestKit/Core/detail/ObservedService.h>
#include <VanticRestKit/Core/NetworkServiceble.h>
#include <VanticRestKit/Core/ObservableContext.h>

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
    return serviceFor(*std::move(request), context);
}

std::shared_ptr<Serviceable> serviceFor(URLRequest request, const Context& context, std::int64_t attempt) {
    const ObservableContext* const observable = context.asObservable();
    std::shared_ptr<RequestObserver> observer = observable == nullptr ? nullptr : observable->observer();
    if (!observer) return context.service({.withURLRequest = std::move(request)});
    auto observation = std::make_shared<const LoadObservation>(std::move(observer), request, attempt);
    std::shared_ptr<Serviceable> service = context.service({.withURLRequest = std::move(request)});
    if (!service) return nullptr;
    return std::make_shared<ObservedService>(std::move(service), std::move(observation));
}

std::shared_ptr<Serviceable> serviceFor(URLRequest request) {
    return NetworkServiceble::make({.with = std::move(request), .logError = nullptr});
}

std::shared_ptr<Serviceable> serviceFor(URL url) {
    return NetworkServiceble::make({.with = std::move(url), .logError = nullptr});
}

}  // namespace VanticRestKit::detail
