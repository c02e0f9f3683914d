#include <VanticRestKit/Core/URLBuilder.h>
#include <VanticRestKit/platform/url/URLComponents.h>

#include <utility>

namespace VanticRestKit {

namespace {

std::optional<URL> joined(const URL& base, const std::string& path, std::vector<URLQueryItem> queries) {
    const URL whole = path.empty() ? base : base.appendingPathComponent(path);
    std::optional<URLComponents> components = URLComponents::make(whole, false);
    if (!components) return std::nullopt;
    if (!queries.empty()) {
        const std::vector<URLQueryItem> own = components->queryItems().value_or(std::vector<URLQueryItem>());
        queries.insert(queries.begin(), own.begin(), own.end());
        components->setQueryItems(std::move(queries));
    }
    return components->url();
}

}  // namespace

std::optional<URLRequest> URLBuilder::urlrequest(Arguments arguments) {
    std::optional<URL> url =
        joined(arguments.usingBaseUrl, arguments.pathComponents, std::move(arguments.queries).value());
    if (!url) return std::nullopt;
    URLRequest request(*std::move(url));
    request.setAttribution(URLRequestAttribution::user);
    request.setTimeoutInterval(URLRequest::Seconds(arguments.timeOut));
    for (const auto& [name, value] : arguments.HTTPHeaders.value()) request.addValue(value, name);
    request.setHTTPMethod(std::move(arguments.httpMethod));
    request.setHTTPBody(std::move(arguments.andPostData));
    return request;
}

}  // namespace VanticRestKit
