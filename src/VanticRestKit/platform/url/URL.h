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

/// An immutable address, absolute or relative. Copies share one string, so a copy costs a reference count.
///
/// A `URL` contains only characters that are valid in a URL: `make` percent-encodes the others. Any number of threads
/// may read one `URL`. A moved-from `URL` still holds its address.
class VRK_EXPORT URL {
public:
    /// An address written in the source: `URL("https://service.example/api")`. It is checked at compile time; see
    /// `URLLiteral` for what is accepted. Use `make` for an address that is known only at run time.
    explicit URL(URLLiteral literal) : URL(*make(literal.text())) {}

    /// Parses `text`, in UTF-8. A user, password, path, query or fragment with a character that is not allowed there,
    /// or with a "%" that begins no escape, is percent-encoded as a whole, including its "%".
    ///
    /// Empty if `text` is empty, if its scheme, host or port is invalid, or if it has no scheme but a ":" in its first
    /// segment. Non-ASCII letters in a host are percent-encoded.
    static std::optional<URL> make(std::string_view text);

    /// Resolves `text`, a reference such as the target of a redirect, against `base` (RFC 3986, section 5). Dot
    /// segments of the result are removed. An empty string gives `base` without its fragment. Empty if `text` cannot be
    /// parsed.
    static std::optional<URL> make(std::string_view text, const URL& relativeTo);

    /// The whole address, percent-encoded.
    const std::string& absoluteString() const noexcept;

    /// The part before the first ":", in its original case. Empty in a relative URL.
    std::optional<std::string> scheme() const;
    /// The user name, decoded. Empty if there is no "@".
    std::optional<std::string> user() const;
    /// The password, decoded. Empty if there is none.
    std::optional<std::string> password() const;
    /// The host, decoded, in its original case; an IPv6 address without its brackets. Empty if there is no host or it
    /// is an empty string.
    std::optional<std::string> host() const;
    /// The port as written; it may be larger than any TCP port. Empty if there is none or if it exceeds 63 bits.
    std::optional<std::int64_t> port() const;
    /// The path, decoded, without a trailing slash (except for the path "/"). The escapes "%2F" and "%00" stay encoded,
    /// and so does a path whose bytes are not UTF-8.
    std::string path() const;
    /// The part between "?" and "#", percent-encoded. Empty if there is no "?".
    std::optional<std::string> query() const;
    /// The part after "#", percent-encoded. Empty if there is no "#".
    std::optional<std::string> fragment() const;

    /// The path as written, percent-encoded.
    std::string percentEncodedPath() const;
    /// The target of an HTTP request: the percent-encoded path, "/" if it is empty, with "?" and the query if there is
    /// one.
    std::string requestTarget() const;

    /// This URL with `component` appended to its path, with one slash in between; query and fragment stay. Slashes in
    /// `component` separate segments, "?", "#" and "%" are percent-encoded, dot segments stay. An empty `component`
    /// gives this URL.
    URL appendingPathComponent(std::string_view component) const;

    /// Whether both have the same absolute string.
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
