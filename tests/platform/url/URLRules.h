#pragma once

/// \file
/// What holds for every URL, whatever it was made from. The random test and the fuzzer both try it.

#include <VanticRestKit/platform/url/URL.h>
#include <VanticRestKit/platform/url/URLComponents.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace VanticRestKit::test {

/// Whether both have the same text, cut into the same parts.
inline bool haveSameParts(const URL& a, const URL& b) {
    return a == b && a.scheme() == b.scheme() && a.user() == b.user() && a.password() == b.password() &&
           a.host() == b.host() && a.port() == b.port() && a.path() == b.path() && a.query() == b.query() &&
           a.fragment() == b.fragment() && a.percentEncodedPath() == b.percentEncodedPath() &&
           a.requestTarget() == b.requestTarget();
}

/// Whether the text holds only what may stand in a URL, and so can end no line of a request.
inline bool holdsOnlyURLCharacters(const URL& url) {
    constexpr std::string_view allowed =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~!$&'()*+,;=:@/?#[]%";
    return url.absoluteString().find_first_not_of(allowed) == std::string::npos;
}

/// Whether the text of `url`, read again, is the same URL: its parts lie where its text says.
inline bool readsBackTheSame(const URL& url) {
    const auto again = URL::make(url.absoluteString());
    return again && haveSameParts(*again, url) && holdsOnlyURLCharacters(url);
}

/// Whether the items survive a round through the query. The one list that cannot is a lone item without name
/// and value, which is written as an empty query.
inline bool survivesTheQuery(URLComponents components, const std::vector<URLQueryItem>& items) {
    components.setQueryItems(items);
    const bool cannot = items.size() == 1 && items[0].name.empty() && !items[0].value;
    const auto expected = cannot ? std::vector<URLQueryItem>() : items;
    const auto url = components.url();
    if (components.queryItems() != expected) return false;
    return !url || (readsBackTheSame(*url) && URLComponents::make(*url, false)->queryItems() == expected);
}

/// The first rule that `text` breaks, read as a URL and as components with `other` as path and item; an empty
/// text where it breaks none.
inline std::string brokenRule(const std::string& text, const std::string& other) {
    if (const auto url = URL::make(text)) {
        if (!readsBackTheSame(*url)) return "a URL reads back the same";
        const URL longer = url->appendingPathComponent(other);
        if (!readsBackTheSame(longer)) return "a URL with a longer path reads back the same";
        if (longer.query() != url->query() || longer.fragment() != url->fragment() ||
            longer.host() != url->host() || longer.scheme() != url->scheme()) {
            return "a longer path changes nothing but the path";
        }
        const auto target = URL::make(other, *url);
        if (target && !readsBackTheSame(*target)) return "a resolved reference reads back the same";
        if (!URLComponents::make(*url, false)) return "a URL has components";
    }
    if (const auto components = URLComponents::make(text)) {
        const auto items = components->queryItems();
        if (items.has_value() != components->query().has_value()) return "a query has items";
        if (!survivesTheQuery(*components, items.value_or(std::vector<URLQueryItem>()))) {
            return "items that were read survive";
        }
        auto longer = items.value_or(std::vector<URLQueryItem>());
        longer.push_back({.name = other, .value = text});
        longer.push_back({.name = text});
        if (!survivesTheQuery(*components, longer)) return "items that were added survive";
        if (!survivesTheQuery(*components, {{.name = other}})) return "a lone item survives";
    }
    return {};
}

}  // namespace VanticRestKit::test
