#include <VanticRestKit/platform/http/detail/HeaderName.h>
#include <VanticRestKit/platform/http/URLRequest.h>

#include <utility>

namespace VanticRestKit {

namespace {

bool isHeader(std::string_view name, std::string_view value) {
    return detail::isToken(name) && detail::isHeaderValue(value);
}

}  // namespace

URLRequest::URLRequest(URL url, URLRequestCachePolicy cachePolicy, Seconds timeoutInterval)
    : url_(std::move(url)), timeoutInterval_(timeoutInterval), cachePolicy_(cachePolicy) {}

void URLRequest::setHTTPMethod(std::optional<std::string> method) {
    httpMethod_ = std::move(method).value_or("GET");
}

void URLRequest::addValue(std::string_view value, std::string_view name) {
    if (!isHeader(name, value)) {
        malformedHeaders_.emplace_back(name);
        return;
    }
    const auto found = detail::findHeader(headers_, name);
    if (found == headers_.end()) {
        headers_.emplace(name, value);
    } else {
        found->second += ',';
        found->second += value;
    }
}

void URLRequest::setValue(std::optional<std::string_view> value, std::string_view name) {
    std::erase_if(malformedHeaders_,
                  [name](const auto& other) { return detail::sameHeaderName(other, name); });
    if (value && !isHeader(name, *value)) {
        malformedHeaders_.emplace_back(name);
        return;
    }
    const auto found = detail::findHeader(headers_, name);
    if (found != headers_.end()) {
        if (value) {
            found->second = *value;
        } else {
            headers_.erase(found);
        }
    } else if (value) {
        headers_.emplace(name, *value);
    }
}

std::optional<std::string> URLRequest::malformedHeaderField() const {
    if (malformedHeaders_.empty()) return std::nullopt;
    return malformedHeaders_.front();
}

std::optional<std::string> URLRequest::value(std::string_view name) const {
    const auto found = detail::findHeader(headers_, name);
    if (found == headers_.end()) return std::nullopt;
    return found->second;
}

}  // namespace VanticRestKit
