#include <VanticRestKit/platform/http/cache/detail/CacheRequest.h>

#include <VanticRestKit/platform/http/detail/HeaderName.h>

namespace VanticRestKit::detail {

CacheRequest::CacheRequest(const URLRequest& request) {
    const std::string method = request.httpMethod().value_or("GET");
    isGet = method == "GET";
    isHead = method == "HEAD";
    isSafe = isGet || isHead || method == "OPTIONS" || method == "TRACE";
    isForServerOnly = request.httpBody().has_value();
    std::string_view cacheControl;
    std::string_view pragma;
    for (const auto& [name, value] : request.allHTTPHeaderFields()) {
        const auto is = [&field = name](std::string_view known) { return sameHeaderName(field, known); };
        // Checking the first letter rules out most fields.
        switch (name.empty() ? ' ' : asciiLower(name.front())) {
            case 'a':
                if (is("authorization")) authorization = value;
                break;
            case 'c':
                if (is("cookie")) cookie = value;
                if (is("cache-control")) {
                    cacheControl = value;
                    hasControl = true;
                }
                break;
            case 'i':
                if (is("if-none-match")) ifNoneMatch = value;
                if (is("if-modified-since")) ifModifiedSince = value;
                if (is("if-match") || is("if-unmodified-since") || is("if-range")) isForServerOnly = true;
                break;
            case 'p':
                if (is("pragma")) pragma = value;
                break;
            case 'r':
                if (is("range")) range = value;
                break;
            default: break;
        }
    }
    control = CacheControl::parse(cacheControl);
    if (!hasControl && !pragma.empty()) control.noCache = CacheControl::parse(pragma).noCache;
}

}  // namespace VanticRestKit::detail
