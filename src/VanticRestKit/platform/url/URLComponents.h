#pragma once

/// \file
/// `URLComponents`: the parts of a URL, with a query that can be changed.

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

/// The parts of a URL. A value: copies change apart from each other. All getters decode.
///
/// Text whose escapes give bytes that are not UTF-8 is handed out as it is written, percent-encoded; query
/// items alone hand out such bytes, so that a query which is read and set again stays what it was.
class VRK_EXPORT URLComponents {
public:
    /// Reads `text` (UTF-8) by the rules of `URL::make`, with two differences: an empty text is fine (no part
    /// is there), and a text that begins with ":" is a path.
    static std::optional<URLComponents> make(std::string_view text);

    /// The parts of `url`. A `URL` holds its whole address, so `resolvingAgainstBaseURL` changes nothing.
    static std::optional<URLComponents> make(const URL& url, bool resolvingAgainstBaseURL);

    /// What stands before the first ":", with its case. Empty in a relative reference.
    std::optional<std::string> scheme() const;
    /// The host with its case, an IPv6 address in its brackets. Empty where there is no "//"; an empty text
    /// where nothing stands behind it.
    std::optional<std::string> host() const;
    /// The path. An empty text where there is none.
    std::string path() const;
    /// The query. Empty where there is no "?".
    std::optional<std::string> query() const;

    /// The query split at "&" and the first "=" of each item. Empty where there is no query; an empty list
    /// where the query is an empty text.
    std::optional<std::vector<URLQueryItem>> queryItems() const;
    /// Replaces the query. An empty list leaves a query that is an empty text; no list leaves none.
    void setQueryItems(const std::optional<std::vector<URLQueryItem>>& items);

    /// The URL of these parts. Empty where no part is there, and where a path that begins with "://" is no
    /// host.
    std::optional<URL> url() const;

    /// Whether both are written the same.
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
