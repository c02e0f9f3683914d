#include <VanticRestKit/trelvo/detail/UserRequests.h>

#include <VanticRestKit/Core/ResourceArguments.h>
#include <VanticRestKit/trelvo/Common/TrelvoContextAuthDecorator.h>
#include <VanticRestKit/trelvo/Token/TokenRoutes.h>

#include <map>
#include <string_view>

namespace VanticRestKit::detail {

namespace {

// Random, so that no header of a host contains it by accident.
constexpr std::string_view marker = "token-3b9e61d07c5f4a28b1d4f6027e8ac953";

std::string replaced(std::string value, const std::string& token) {
    for (std::size_t at = value.find(marker); at != std::string::npos;
         at = value.find(marker, at + token.size())) {
        value.replace(at, marker.size(), token);
    }
    return value;
}

}  // namespace

UserRequests UserRequests::read(const TrelvoContext& context, const Route& route) {
    UserRequests requests{.uid = context.uid()};
    if (!requests.uid) return requests;
    const TrelvoContextAuthDecorator marked(context, std::string(marker));
    const TrelvoContextAuthDecorator plain(context, std::nullopt);
    const TokenURI tokens{.uid = *requests.uid, .source = marked.source()};
    requests.data = requestFor(route(tokens.uid, tokens.source), marked);
    requests.refresh = requestFor(tokens, marked);
    requests.firstTokens = requestFor(tokens, plain);
    return requests;
}

URLRequest withToken(URLRequest request, const std::string& token) {
    const std::map<std::string, std::string> headers = request.allHTTPHeaderFields();
    for (const auto& [name, value] : headers) {
        if (value.find(marker) == std::string::npos) continue;
        // Removed first: if the token is not a valid header value, the marker must not remain.
        request.setValue(std::nullopt, name);
        request.setValue(replaced(value, token), name);
    }
    return request;
}

URLRequest withoutToken(URLRequest request) {
    const std::map<std::string, std::string> headers = request.allHTTPHeaderFields();
    for (const auto& [name, value] : headers) {
        if (value.find(marker) != std::string::npos) request.setValue(std::nullopt, name);
    }
    return request;
}

}  // namespace VanticRestKit::detail
