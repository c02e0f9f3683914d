#pragma once

/// \file
/// `URLComponents`: the parts of a URL, with a modifiable query.

#include <VanticRestKit/platform/url/URL.h>
#include <VanticRestKit/platform/url/URLQueryItem.h>
#include <VanticRestKit/Visibility.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace VanticRestKit {

/// The parts of a URL. A value: copies are independent. All getters decode.
///
/// A part whose decoded bytes are not UTF-8 is returned percent-encoded, as written. Only query items return such bytes
/// decoded, so that a query that is read and set again does not change.
class VRK_EXPORT URLComponents {
public:
    /// Parses `text`, in UTF-8, by the rules of `URL::make`, with two differences: an empty string is accepted and has
    /// no parts, and a string that begins with ":" is a path.
    static std::optional<URLComponents> make(std::string_view text);

    /// The parts of `url`. `resolvingAgainstBaseURL` has no effect, since a `URL` always holds its whole address.
    static std::optional<URLComponents> make(const URL& url, bool resolvingAgainstBaseURL);

    /// The part before the first ":", in its original case. Empty in a relative reference.
    std::optional<std::string> scheme() const;
    /// The host in its original case; an IPv6 address with its brackets. Empty if there is no "//"; an empty string if
    /// nothing follows it.
    std::optional<std::string> host() const;
    /// The path; an empty string if there is none.
    std::string path() const;
    /// The query. Empty if there is no "?".
    std::optional<std::string> query() const;

    /// The query split at "&" and at the first "=" of each item. Empty if there is no query; an empty list if the query
    /// is an empty string.
    std::optional<std::vector<URLQueryItem>> queryItems() const;
    /// Replaces the query. An empty list gives a query that is an empty string; an empty optional removes the query.
    void setQueryItems(const std::optional<std::vector<URLQueryItem>>& items);

    /// The URL of these parts. Empty if there are no parts, or if a path that begins with "://" is not followed by a
    /// host.
    std::optional<URL> url() const;

    /// Whether both have the same string.
    friend bool operator==(const URLComponents& a, const URLComponents& b) noexcept { return a.equals(b); }

    URLComponents(const URLComponents&) = default;
    URLComponents& operator=(const URLComponents&) = default;
    ~URLComponents() = default;

private:
    explicit URLComponents(std::shared_ptr<const detail::URLText> text) : text_(std::move(text)) {}

    bool equals(const URLComponents& other) const noexcept;

    std::shared_ptr<const detail::URLText> text_;
};

}  // namespace VanticRestKit
