#pragma once

/// \file
/// `URLLiteral`: an address that is checked by the compiler.

#include <algorithm>
#include <string_view>

namespace VanticRestKit {

namespace detail {

constexpr bool isLetter(char c) noexcept { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
constexpr bool isDecimalDigit(char c) noexcept { return c >= '0' && c <= '9'; }
constexpr bool isHexDigit(char c) noexcept {
    return isDecimalDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}
constexpr bool isAlphanumeric(char c) noexcept { return isLetter(c) || isDecimalDigit(c); }

/// Whether this character is allowed unencoded in a path, query or fragment.
constexpr bool isURLCharacter(char c) noexcept {
    return isAlphanumeric(c) || std::string_view("-._~!$&'()*+,;=:@/").find(c) != std::string_view::npos;
}

/// Whether `text` consists of allowed characters and complete escapes.
constexpr bool isEncoded(std::string_view text, bool allowsQuestionMarks) noexcept {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%') {
            if (text.size() - i < 3 || !isHexDigit(text[i + 1]) || !isHexDigit(text[i + 2])) return false;
            i += 2;
        } else if (!isURLCharacter(text[i]) && !(allowsQuestionMarks && text[i] == '?')) {
            return false;
        }
    }
    return true;
}

/// Whether `text` is a host with or without a port.
constexpr bool isHostAndPort(std::string_view text) noexcept {
    const std::size_t colon = text.find(':');
    const std::string_view host = text.substr(0, colon);
    const auto isHostCharacter = [](char c) { return isAlphanumeric(c) || c == '-' || c == '.'; };
    if (host.empty() || !std::all_of(host.begin(), host.end(), isHostCharacter)) return false;
    if (colon == std::string_view::npos) return true;
    const std::string_view port = text.substr(colon + 1);
    return !port.empty() && port.size() <= 5 && std::all_of(port.begin(), port.end(), isDecimalDigit);
}

/// Whether `URLLiteral` accepts `text`.
constexpr bool isURLLiteral(std::string_view text) noexcept {
    for (const std::string_view scheme : {std::string_view("https://"), std::string_view("http://")}) {
        if (!text.starts_with(scheme)) continue;
        text.remove_prefix(scheme.size());
        const std::size_t authorityEnd = std::min(text.find_first_of("/?#"), text.size());
        if (!isHostAndPort(text.substr(0, authorityEnd))) return false;
        text.remove_prefix(authorityEnd);
        const std::size_t hash = std::min(text.find('#'), text.size());
        const std::string_view beforeHash = text.substr(0, hash);
        const std::size_t question = std::min(beforeHash.find('?'), beforeHash.size());
        return isEncoded(beforeHash.substr(0, question), false) &&
               isEncoded(beforeHash.substr(std::min(question + 1, beforeHash.size())), true) &&
               isEncoded(text.substr(std::min(hash + 1, text.size())), true);
    }
    return false;
}

/// Never defined: its name appears in the compiler error for an invalid literal.
void literalIsNotAnHTTPAddress();

}  // namespace detail

/// A constant address for the constructor of `URL`. An invalid one does not compile.
///
/// Accepted are "http://" and "https://" with a host of ASCII letters, digits, "-" and ".", an optional port, and an
/// already percent-encoded path, query and fragment. For anything else (a user, an IPv6 address, another scheme,
/// characters to be encoded) use `URL::make`.
class URLLiteral {
public:
    /// Does not compile for an invalid URL.
    consteval URLLiteral(const char* text) : text_(text) {
        if (!detail::isURLLiteral(text_)) detail::literalIsNotAnHTTPAddress();
    }

    /// The string of the URL.
    constexpr std::string_view text() const noexcept { return text_; }

private:
    std::string_view text_;
};

}  // namespace VanticRestKit
