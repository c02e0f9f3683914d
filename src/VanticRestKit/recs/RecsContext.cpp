#include <VanticRestKit/recs/RecsContext.h>

#include <VanticRestKit/Core/URLBuilder.h>

#include <utility>

namespace VanticRestKit {

RecsContext::~RecsContext() = default;

std::optional<URLRequest> RecsContext::generateURLRequest(URLRequestArguments arguments) const {
    std::vector<URLQueryItem> items = std::move(arguments.queryItems).value();
    items.push_back({"apikey", apiKey()});
    const std::optional<double> given = arguments.timeout.value();
    const double timeOut = given ? *given : requestTimeout();
    return URLBuilder::urlrequest({.usingBaseUrl = baseURL(),
                                   .pathComponents = std::move(arguments.usingPath),
                                   .queries = std::move(items),
                                   .HTTPHeaders = std::move(arguments.additionalHTTPHeaders),
                                   .httpMethod = std::move(arguments.httpMethod),
                                   .andPostData = std::move(arguments.andPostData),
                                   .timeOut = timeOut});
}

}  // namespace VanticRestKit
