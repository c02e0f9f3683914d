#include <VanticRestKit/trelvo/Common/TrelvoContextAuthDecorator.h>

#include <VanticRestKit/Core/Serviceable.h>

namespace VanticRestKit {

std::optional<std::string> TrelvoContextAuthDecorator::uid() const { return decoratedContext_.uid(); }

SourceSystem TrelvoContextAuthDecorator::source() const { return decoratedContext_.source(); }

URL TrelvoContextAuthDecorator::baseURL() const { return decoratedContext_.baseURL(); }

std::map<std::string, std::string> TrelvoContextAuthDecorator::HTTPHeaderFields() const {
    std::map<std::string, std::string> headers = decoratedContext_.HTTPHeaderFields();
    if (bearerToken_) {
        headers["Authorization"] = "Bearer " + *bearerToken_;
        headers["Content-Type"] = "application/x-www-form-urlencoded";
    }
    return headers;
}

double TrelvoContextAuthDecorator::requestTimeout() const { return decoratedContext_.requestTimeout(); }

std::shared_ptr<Serviceable> TrelvoContextAuthDecorator::service(ServiceArguments arguments) const {
    return decoratedContext_.service(std::move(arguments));
}

std::optional<URLRequest> TrelvoContextAuthDecorator::generateURLRequest(
    URLRequestArguments arguments) const {
    return decoratedContext_.generateURLRequest(std::move(arguments));
}

}  // namespace VanticRestKit
