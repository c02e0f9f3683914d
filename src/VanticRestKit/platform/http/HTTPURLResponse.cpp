#include <VanticRestKit/platform/http/HTTPURLResponse.h>

#include <VanticRestKit/platform/http/detail/HeaderName.h>

#include <utility>

namespace VanticRestKit {

HTTPURLResponse::HTTPURLResponse(std::optional<URL> url, std::int64_t statusCode, HeaderFields headerFields,
                                 HTTPCacheStatus cacheStatus)
    : URLResponse(std::move(url)),
      statusCode_(statusCode),
      headerFields_(std::move(headerFields)),
      cacheStatus_(cacheStatus) {}

HTTPURLResponse::~HTTPURLResponse() = default;

std::optional<std::string> HTTPURLResponse::value(std::string_view name) const {
    const auto found = detail::findHeader(headerFields_, name);
    if (found == headerFields_.end()) return std::nullopt;
    return found->second;
}

std::optional<std::string> HTTPURLResponse::cacheStatusValue() const {
    std::optional<std::string> received = value("Cache-Status");
    const std::optional<std::string> own = cacheStatus_.text();
    if (!received || !own) return received ? received : own;
    return *received + ", " + *own;
}

}  // namespace VanticRestKit
