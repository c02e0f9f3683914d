#include <VanticRestKit/Core/Context.h>
#include <VanticRestKit/Core/NetworkServiceble.h>
#include <VanticRestKit/Core/URLBuilder.h>

#include <utility>

namespace VanticRestKit {

Context::~Context() = default;

std::map<std::string, std::string> Context::HTTPHeaderFields() const { return {}; }

double Context::requestTimeout() const { return 30.0; }

LogError Context::logError() const { return nullptr; }

std::shared_ptr<Serviceable> Context::service(ServiceArguments arguments) const {
    return NetworkServiceble::make({.with = std::move(arguments.withURLRequest), .logError = logError()});
}

std::optional<URLRequest> Context::generateURLRequest(URLRequestArguments arguments) const {
    URL base = baseURL();
    std::map<std::string, std::string> headers = std::move(arguments.additionalHTTPHeaders);
    headers.merge(HTTPHeaderFields());
    const std::optional<double> timeout = arguments.timeout;
    return URLBuilder::urlrequest({.usingBaseUrl = std::move(base),
                                   .pathComponents = std::move(arguments.usingPath),
                                   .queries = std::move(arguments.queryItems),
                                   .HTTPHeaders = std::move(headers),
                                   .httpMethod = std::move(arguments.httpMethod),
                                   .andPostData = std::move(arguments.andPostData),
                                   .timeOut = timeout ? *timeout : requestTimeout()});
}

}  // namespace VanticRestKit
