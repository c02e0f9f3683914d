#include <VanticRestKit/Core/URLBuilder.h>
#include <VanticRestKit/platform/url/URLComponents.h>

#include <utility>

namespace VanticRestKit {

namespace {

std::optional<URL> joined(const URL& base, const std::string& path,
                          const std::vector<URLQueryItem>& queries) {
    const URL whole = path.empty() ? base : base.appendingPathComponent(path);
    std::optional<URLComponents> components = URLComponents::make(whole, false);
    if (!components) return std::nullopt;
    if (!queries.empty()) {
        std::vector<URLQueryItem> items = components->queryItems().value_or(std::vector<URLQueryItem>());
        items.insert(items.end(), queries.begin(), queries.end());
        components->setQueryItems(std::move(items));
    }
    return components->url();
}

}  // namespace

std::optional<URLRequest> URLBuilder::urlrequest(Arguments arguments) {
    std::optional<URL> url = joined(arguments.usingBaseUrl, arguments.pathComponents, arguments.queries);
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
