#pragma once

/// \file
/// `URLText`: a parsed URL, shared by `URL` and `URLComponents`.

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit::detail {

/// The position of a part. A part may be present but empty, such as the query of "x?".
struct URLPart {
    std::size_t begin = 0;
    std::size_t length = 0;
    bool present = false;
};

/// `[scheme ":"] ["//" [user [":" password] "@"] host [":" port]] path ["?" query] ["#" fragment]`
///
/// All parts are percent-encoded. The path is always present; "//" is present if the host is.
struct URLText {
    std::string text;
    /// Where "//" or the path begins: after the ":" of a scheme, if there is one.
    std::size_t schemeEnd = 0;
    URLPart scheme;
    URLPart user;
    URLPart password;
    URLPart host;
    URLPart port;
    URLPart path;
    URLPart query;
    URLPart fragment;

    /// A part, encoded. An empty string if it is not present.
    std::string_view view(const URLPart& part) const noexcept {
        return std::string_view(text).substr(part.begin, part.length);
    }
    /// The same, but an empty optional if the part is not present.
    std::optional<std::string_view> find(const URLPart& part) const noexcept {
        if (!part.present) return std::nullopt;
        return view(part);
    }
};

using SharedURLText = std::shared_ptr<const URLText>;

/// The meaning of a ":" at the start of the string.
enum class LeadingColon { endsAnEmptyScheme, belongsToThePath };

/// Parses `text` and percent-encodes the parts that need it. Null if it cannot be a URL.
SharedURLText readURLText(std::string_view text, LeadingColon leadingColon);

/// `url` with another, percent-encoded path. If it would be mistaken for a host or scheme, an equivalent path is used.
SharedURLText replacingPath(const URLText& url, std::string_view path);

/// `url` with another percent-encoded query, or without one.
SharedURLText replacingQuery(const URLText& url, std::optional<std::string_view> query);

/// `reference`, parsed with `LeadingColon::belongsToThePath`, resolved against `base` (RFC 3986, section 5.2).
SharedURLText resolved(const URLText& reference, const URLText& base);

}  // namespace VanticRestKit::detail
