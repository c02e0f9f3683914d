#pragma once

/// \file
/// `lumenoHrefURI`: the route for an href of the catalogue service.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/lumeno/Link/Link.h>
#include <VanticRestKit/platform/url/URLQueryItem.h>

#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit {

/// The route for a path that the catalogue service sent, such as the `href` of a link. It adds the version prefix and
/// changes nothing else: a leading slash is kept, which results in two slashes.
struct lumenoHrefURI {
    /// An href as a string.
    struct HrefArguments {
        /// The href of the resource, as sent by the service.
        Required<std::string> withHref;
    };
    /// The href of a link.
    struct LinkArguments {
        /// The link to follow.
        Required<Link> withLink;
    };

    /// `lumenoHrefURI({.withHref = "show/x"})`
    explicit lumenoHrefURI(HrefArguments arguments) : href(std::move(arguments.withHref).value()) {}
    /// `lumenoHrefURI({.withLink = link})`: the link's `href`.
    explicit lumenoHrefURI(LinkArguments arguments) : href(std::move(arguments.withLink).value().href) {}

    /// The path as the service sent it.
    std::string href;

    /// The path below the base URL.
    std::string path() const { return "v2/" + href; }
    /// None.
    std::vector<URLQueryItem> queryItems() const { return {}; }

    friend bool operator==(const lumenoHrefURI&, const lumenoHrefURI&) = default;
};

}  // namespace VanticRestKit
