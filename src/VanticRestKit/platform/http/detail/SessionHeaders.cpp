#include <VanticRestKit/platform/http/detail/SessionHeaders.h>

#include <string_view>

namespace VanticRestKit::detail {

namespace {

void addMissing(URLRequest& request, std::string_view name, std::string_view value) {
    if (!request.value(name)) request.setValue(value, name);
}

}  // namespace

URLRequest withSessionHeaders(URLRequest request, const URLSessionConfiguration& configuration) {
    for (const auto& [name, value] : configuration.httpAdditionalHeaders) addMissing(request, name, value);
    if (configuration.userAgent) addMissing(request, "User-Agent", *configuration.userAgent);
    return request;
}

}  // namespace VanticRestKit::detail
