#pragma once

/// \file
/// Rules that hold for every URL. Used by the random test and the fuzzer.

#include <VanticRestKit/platform/url/URL.h>
#include <VanticRestKit/platform/url/URLComponents.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace VanticRestKit::test {

/// Whether both have the same string and the same parts.
inline bool haveSameParts(const URL& a, const URL& b) {
    return a == b && a.scheme() == b.scheme() && a.user() == b.user() && a.password() == b.password() &&
           a.host() == b.host() && a.port() == b.port() && a.path() == b.path() && a.query() == b.query() &&
           a.fragment() == b.fragment() && a.percentEncodedPath() == b.percentEncodedPath() &&
           a.requestTarget() == b.requestTarget();
}

/// Whether the string contains only characters allowed in a URL, so that it cannot end a line of a request.
inline bool holdsOnlyURLCharacters(const URL& url) {
    constexpr std::string_view allowed =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~!$&'()*+,;=:@/?#[]%";
    return url.absoluteString().find_first_not_of(allowed) == std::string::npos;
}

/// Whether parsing the string of `url` again gives the same URL with the same parts.
inline bool readsBackTheSame(const URL& url) {
    const auto again = URL::make(url.absoluteString());
    return again && haveSameParts(*again, url) && holdsOnlyURLCharacters(url);
}

/// Whether the items survive a round trip through the query. The only exception is a single item without name and
/// value, which is written as an empty query.
inline bool survivesTheQuery(URLComponents components, const std::vector<URLQueryItem>& items) {
    components.setQueryItems(items);
    const bool cannot = items.size() == 1 && items[0].name.empty() && !items[0].value;
    const auto expected = cannot ? std::vector<URLQueryItem>() : items;
    const auto url = components.url();
    if (components.queryItems() != expected) return false;
    return !url || (readsBackTheSame(*url) && URLComponents::make(*url, false)->queryItems() == expected);
}

/// The first rule that `text` breaks, parsed as a URL and as components with `other` as path and item. Empty if it
/// breaks none.
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
