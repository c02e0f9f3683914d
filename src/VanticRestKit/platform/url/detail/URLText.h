#pragma once

/// \file
/// `URLText`: the text of a URL with the places of its parts. `URL` and `URLComponents` share it.

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit::detail {

/// Where a part lies in the text. A part may be present and without a character, such as the query of "x?".
struct URLPart {
    std::size_t begin = 0;
    std::size_t length = 0;
    bool present = false;
};

/// `[scheme ":"] ["//" [user [":" password] "@"] host [":" port]] path ["?" query] ["#" fragment]`
///
/// The text is percent-encoded throughout. The path is always present; there is a "//" where the host is.
struct URLText {
    std::string text;
    /// Where "//" or the path begins: behind the ":" of a scheme, which may be empty.
    std::size_t schemeEnd = 0;
    URLPart scheme;
    URLPart user;
    URLPart password;
    URLPart host;
    URLPart port;
    URLPart path;
    URLPart query;
    URLPart fragment;

    /// The text of a part, encoded. Empty where the part is not there.
    std::string_view view(const URLPart& part) const noexcept {
        return std::string_view(text).substr(part.begin, part.length);
    }
    /// The same, but nothing where the part is not there.
    std::optional<std::string_view> find(const URLPart& part) const noexcept {
        if (!part.present) return std::nullopt;
        return view(part);
    }
};

using SharedURLText = std::shared_ptr<const URLText>;

/// What a ":" at the very beginning of a text is.
enum class LeadingColon { endsAnEmptyScheme, belongsToThePath };

/// Reads `text` and percent-encodes the parts that need it. Null where it cannot be a URL.
SharedURLText readURLText(std::string_view text, LeadingColon leadingColon);

/// `url` with another path. `path` is percent-encoded; where it would be taken for something else (a host, a
/// scheme) it is written in another way that means the same.
SharedURLText replacingPath(const URLText& url, std::string_view path);

/// `url` with another query, percent-encoded, or with none.
SharedURLText replacingQuery(const URLText& url, std::optional<std::string_view> query);

/// `reference`, read with `LeadingColon::belongsToThePath`, as it was met at `base` (RFC 3986, section 5.2).
SharedURLText resolved(const URLText& reference, const URLText& base);

}  // namespace VanticRestKit::detail
