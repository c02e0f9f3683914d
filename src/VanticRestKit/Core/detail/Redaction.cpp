#include <VanticRestKit/Core/detail/Redaction.h>

#include <VanticRestKit/platform/http/detail/URLErrors.h>

#include <algorithm>

namespace VanticRestKit::detail {

namespace {

constexpr std::string_view redacted = "redacted";

void addRedactedQuery(std::string& text, std::string_view query) {
    while (true) {
        const std::size_t end = std::min(query.find('&'), query.size());
        const std::string_view item = query.substr(0, end);
        const std::size_t equals = item.find('=');
        if (equals != std::string_view::npos) text.append(item.substr(0, equals + 1));
        if (!item.empty()) text.append(redacted);
        if (end == query.size()) return;
        text += '&';
        query.remove_prefix(end + 1);
    }
}

}  // namespace

std::string redactedAddress(std::string_view url) {
    const std::string_view whole = url.substr(0, url.find('#'));
    const std::string_view address = whole.substr(0, whole.find('?'));
    std::string text;
    const std::size_t scheme = address.find("://");
    const std::size_t authority = scheme == std::string_view::npos ? 0 : scheme + 3;
    const std::size_t path = std::min(address.find('/', authority), address.size());
    const std::size_t at = address.substr(0, path).rfind('@');
    text.append(address.substr(0, authority));
    if (at != std::string_view::npos && at >= authority) {
        text.append(redacted).append(address.substr(at));
    } else {
        text.append(address.substr(authority));
    }
    if (address.size() < whole.size()) {
        text += '?';
        addRedactedQuery(text, whole.substr(address.size() + 1));
    }
    if (whole.size() < url.size()) text.append("#").append(redacted);
    return text;
}

Error withoutDetails(const Error& error) {
    if (error.domain() != NSURLErrorDomain) return NSError(error.domain(), error.code());
    const std::string_view sentence = urlErrorDescription(static_cast<URLErrorCode>(error.code()));
    return NSError(error.domain(), error.code(), {{std::string(NSLocalizedDescriptionKey), sentence}});
}

}  // namespace VanticRestKit::detail
