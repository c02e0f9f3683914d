#include <VanticRestKit/platform/url/detail/PathRules.h>
#include <VanticRestKit/platform/url/detail/PercentCoding.h>
#include <VanticRestKit/platform/url/detail/URLText.h>

#include <algorithm>
#include <utility>

namespace VanticRestKit::detail {

namespace {

/// A string split into parts, not yet validated or encoded.
struct Pieces {
    std::optional<std::string_view> scheme;
    std::optional<std::string_view> authority;
    std::string_view path;
    std::optional<std::string_view> query;
    std::optional<std::string_view> fragment;
};

/// An authority split into parts.
struct Authority {
    std::optional<std::string_view> user;
    std::optional<std::string_view> password;
    std::string_view host;
    std::optional<std::string_view> port;
};

bool isDigit(char c) noexcept { return c >= '0' && c <= '9'; }

bool isLetter(char c) noexcept { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool isHexDigit(char c) noexcept { return isDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'); }

bool isScheme(std::string_view text) noexcept {
    const auto fits = [](char c) { return isLetter(c) || isDigit(c) || c == '+' || c == '-' || c == '.'; };
    return isLetter(text.front()) && std::all_of(text.begin(), text.end(), fits);
}

/// Removes and returns the start of `text` up to the first of `ends`.
std::string_view take(std::string_view& text, std::string_view ends) {
    const std::string_view taken = text.substr(0, text.find_first_of(ends));
    text.remove_prefix(taken.size());
    return taken;
}

/// A scheme is the part before a ":" that is the first delimiter. If that part is no valid scheme, the string cannot be
/// parsed: a ":" in the first segment of a path is allowed only after another delimiter.
std::optional<Pieces> cut(std::string_view text, LeadingColon leadingColon) {
    Pieces pieces;
    const std::size_t delimiter = text.find_first_of(":/?#[]@");
    if (delimiter != std::string_view::npos && text[delimiter] == ':') {
        if (delimiter > 0) {
            if (!isScheme(text.substr(0, delimiter))) return std::nullopt;
            pieces.scheme = text.substr(0, delimiter);
            text.remove_prefix(delimiter + 1);
        } else if (leadingColon == LeadingColon::endsAnEmptyScheme) {
            pieces.scheme = std::string_view();
            text.remove_prefix(1);
        }
    }
    if (text.starts_with("//")) {
        text.remove_prefix(2);
        pieces.authority = take(text, "/?#");
    }
    pieces.path = take(text, "?#");
    if (text.starts_with('?')) {
        text.remove_prefix(1);
        pieces.query = take(text, "#");
    }
    if (text.starts_with('#')) pieces.fragment = text.substr(1);
    return pieces;
}

Authority cutAuthority(std::string_view text) {
    Authority authority;
    const std::size_t at = text.rfind('@');
    if (at != std::string_view::npos) {
        std::string_view userinfo = text.substr(0, at);
        text.remove_prefix(at + 1);
        authority.user = take(userinfo, ":");
        if (!userinfo.empty()) authority.password = userinfo.substr(1);
    }
    // The colons of an IPv6 address are inside brackets; a missing closing bracket is refused later.
    const std::size_t bracket = text.starts_with('[') ? text.find(']') : 0;
    const std::size_t colon = text.find(':', bracket);
    authority.host = text.substr(0, colon);
    if (colon < text.size()) authority.port = text.substr(colon + 1);
    return authority;
}

/// An address in brackets: IPv6, optionally with a zone after "%25", or a future form that begins with "v".
bool isAddressInBrackets(std::string_view host) {
    if (host.size() < 3 || host.back() != ']') return false;
    const std::string_view inside = host.substr(1, host.size() - 2);
    const auto fitsFutureForm = [](char c) { return c == ':' || isAllowedIn(URLCharacters::host, c); };
    const auto fitsAddress = [](char c) { return isHexDigit(c) || c == ':' || c == '.'; };
    if (inside.front() == 'v' || inside.front() == 'V') {
        return inside.find('.') != std::string_view::npos &&
               std::all_of(inside.begin(), inside.end(), fitsFutureForm);
    }
    const std::size_t percent = inside.find('%');
    const std::string_view address = inside.substr(0, percent);
    if (address.empty() || !std::all_of(address.begin(), address.end(), fitsAddress)) return false;
    if (percent == std::string_view::npos) return true;
    const std::string_view zone = inside.substr(percent);
    return zone.size() > 3 && zone.starts_with("%25") && isEncoded(zone, URLCharacters::host);
}

bool isHost(std::string_view host) {
    if (host.starts_with('[')) return isAddressInBrackets(host);
    for (std::size_t i = 0; i < host.size(); ++i) {
        const bool beyondASCII = static_cast<unsigned char>(host[i]) >= 0x80;
        if (!beyondASCII && !isAllowedIn(URLCharacters::host, host[i]) && !isEscape(host, i)) return false;
    }
    return true;
}

/// Escapes in a host are kept; only non-ASCII characters are encoded.
std::string encodedHost(std::string_view host) {
    std::string out;
    for (const char& c : host) {
        const std::string_view one(&c, 1);
        if (static_cast<unsigned char>(c) >= 0x80) {
            appendEncoded(out, one, URLCharacters::host);
        } else {
            out += one;
        }
    }
    return out;
}

/// Appends `content` and records its position.
void append(URLText& url, URLPart& part, std::string_view content) {
    part = {.begin = url.text.size(), .length = content.size(), .present = true};
    url.text += content;
}

/// The same for a part that may need encoding; it is encoded as a whole or not at all.
void appendEncoding(URLText& url, URLPart& part, std::string_view content, URLCharacters characters) {
    if (isEncoded(content, characters)) return append(url, part, content);
    std::string encoded;
    appendEncoded(encoded, content, characters);
    append(url, part, encoded);
}

bool appendAuthority(URLText& url, std::string_view text) {
    const Authority authority = cutAuthority(text);
    if (!isHost(authority.host)) return false;
    if (authority.port && !std::all_of(authority.port->begin(), authority.port->end(), isDigit)) return false;
    url.text += "//";
    if (authority.user) {
        appendEncoding(url, url.user, *authority.user, URLCharacters::user);
        if (authority.password) {
            url.text += ':';
            appendEncoding(url, url.password, *authority.password, URLCharacters::password);
        }
        url.text += '@';
    }
    append(url, url.host, encodedHost(authority.host));
    if (authority.port) {
        url.text += ':';
        append(url, url.port, *authority.port);
    }
    return true;
}

void appendPath(URLText& url, std::string_view path) {
    if (isEncoded(path, URLCharacters::path)) return append(url, url.path, path);
    std::string encoded;
    appendEncoded(encoded, path, URLCharacters::path);
    append(url, url.path, unmistakablePath(url, std::move(encoded)));
}

}  // namespace

SharedURLText readURLText(std::string_view text, LeadingColon leadingColon) {
    const std::optional<Pieces> pieces = cut(text, leadingColon);
    if (!pieces) return nullptr;
    const auto url = std::make_shared<URLText>();
    url->text.reserve(text.size());
    if (pieces->scheme) {
        append(*url, url->scheme, *pieces->scheme);
        url->scheme.present = !pieces->scheme->empty();
        url->text += ':';
    }
    url->schemeEnd = url->text.size();
    if (pieces->authority && !appendAuthority(*url, *pieces->authority)) return nullptr;
    appendPath(*url, pieces->path);
    if (pieces->query) {
        url->text += '?';
        appendEncoding(*url, url->query, *pieces->query, URLCharacters::query);
    }
    if (pieces->fragment) {
        url->text += '#';
        appendEncoding(*url, url->fragment, *pieces->fragment, URLCharacters::query);
    }
    return url;
}

}  // namespace VanticRestKit::detail
