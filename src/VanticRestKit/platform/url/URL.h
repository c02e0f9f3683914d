#pragma once

/// \file
/// `URL`: the address of a resource.

#include <VanticRestKit/platform/url/URLLiteral.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace VanticRestKit {

namespace detail {
struct URLText;
}

/// An immutable address, absolute or relative. Copies share one text, so a copy costs a reference count.
///
/// The text of a `URL` holds only characters that a URL may hold: `make` percent-encodes the others. Any
/// number of threads may read one `URL`. A `URL` that was moved from still holds its address.
class VRK_EXPORT URL {
public:
    /// The address that is written in the source: `URL("https://service.example/api")`. It is checked where it is
    /// compiled, so there is nothing to test or dereference; see `URLLiteral` for what is accepted. An address that is
    /// known only at run time goes through `make`.
    explicit URL(URLLiteral literal) : URL(*make(literal.text())) {}

    /// Reads `text` (UTF-8). A user, password, path, query or fragment with a character that may not stand
    /// there, or with a "%" that begins no escape, is percent-encoded as a whole, its "%" included.
    ///
    /// Empty where `text` is an empty text, where the scheme, host or port cannot be one, and where a text
    /// without scheme has a ":" in its first part. Letters beyond ASCII in a host are percent-encoded.
    static std::optional<URL> make(std::string_view text);

    /// Reads `text` as a reference that was met at `base`, such as the target of a redirect, and resolves it
    /// (RFC 3986, section 5): dot segments of the outcome are removed. An empty text is `base` without its
    /// fragment. Empty where `text` cannot be read.
    static std::optional<URL> make(std::string_view text, const URL& relativeTo);

    /// The whole address, percent-encoded.
    const std::string& absoluteString() const noexcept;

    /// What stands before the first ":", with its case. Empty in a relative URL.
    std::optional<std::string> scheme() const;
    /// The user name, decoded. Empty where there is no "@".
    std::optional<std::string> user() const;
    /// The password, decoded. Empty where the user has none.
    std::optional<std::string> password() const;
    /// The host, decoded, with its case, an IPv6 address without its brackets. Empty where there is no host
    /// or the host is an empty text.
    std::optional<std::string> host() const;
    /// The port as it is written; it may be larger than any TCP port. Empty where there is none or where it
    /// exceeds 63 bits.
    std::optional<std::int64_t> port() const;
    /// The path, decoded, without the slash at its end (a path "/" stays). The escapes "%2F" and "%00" stay
    /// as they are, and so does a path whose bytes are not UTF-8.
    std::string path() const;
    /// What stands between "?" and "#", percent-encoded. Empty where there is no "?".
    std::optional<std::string> query() const;
    /// What stands behind "#", percent-encoded. Empty where there is no "#".
    std::optional<std::string> fragment() const;

    /// The path as it is written, percent-encoded.
    std::string percentEncodedPath() const;
    /// What an HTTP request names: percent-encoded path, "/" for an empty one, with "?" and the query.
    std::string requestTarget() const;

    /// This URL with `component` behind its path, one slash between them; query and fragment stay.
    /// `component` is taken whole: its slashes separate segments, a "?", "#" or "%" is percent-encoded, dot
    /// segments stay. An empty `component` gives this URL.
    URL appendingPathComponent(std::string_view component) const;

    /// Whether both have the same absolute text.
    friend bool operator==(const URL& a, const URL& b) noexcept {
        return a.absoluteString() == b.absoluteString();
    }

    URL(const URL&) = default;
    URL& operator=(const URL&) = default;
    ~URL() = default;

private:
    friend class URLComponents;

    explicit URL(std::shared_ptr<const detail::URLText> text) : text_(std::move(text)) {}

    std::shared_ptr<const detail::URLText> text_;
};

}  // namespace VanticRestKit
