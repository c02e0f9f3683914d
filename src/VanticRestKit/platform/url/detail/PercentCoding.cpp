#include <VanticRestKit/platform/url/detail/PercentCoding.h>

#include <VanticRestKit/platform/text/detail/Hex.h>
#include <VanticRestKit/platform/text/detail/UTF8.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace VanticRestKit::detail {

namespace {

constexpr std::uint8_t bit(URLCharacters part) { return static_cast<std::uint8_t>(part); }

constexpr std::uint8_t everywhere = bit(URLCharacters::user) | bit(URLCharacters::password) |
                                    bit(URLCharacters::host) | bit(URLCharacters::path) |
                                    bit(URLCharacters::query) | bit(URLCharacters::queryItem);

/// For each byte, the parts in which it is allowed (RFC 3986, appendix A).
constexpr std::array<std::uint8_t, 256> holders = [] {
    std::array<std::uint8_t, 256> table{};
    const auto give = [&table](std::string_view characters, std::uint8_t parts) {
        for (const char c : characters) {
            std::uint8_t& entry = table[static_cast<unsigned char>(c)];
            entry = static_cast<std::uint8_t>(entry | parts);
        }
    };
    give("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~!$'()*+,;", everywhere);
    // They separate query items, so they are allowed in every part except inside an item.
    give("&=", static_cast<std::uint8_t>(everywhere & ~bit(URLCharacters::queryItem)));
    give(":", bit(URLCharacters::password));
    give(":@/", bit(URLCharacters::path) | bit(URLCharacters::query) | bit(URLCharacters::queryItem));
    give("?", bit(URLCharacters::query) | bit(URLCharacters::queryItem));
    return table;
}();

}  // namespace

bool isAllowedIn(URLCharacters part, char byte) noexcept {
    return (holders[static_cast<unsigned char>(byte)] & bit(part)) != 0;
}

bool isEscape(std::string_view text, std::size_t at) noexcept {
    return text.size() - at >= 3 && text[at] == '%' && hexValue(text[at + 1]) >= 0 &&
           hexValue(text[at + 2]) >= 0;
}

bool isEncoded(std::string_view text, URLCharacters part) noexcept {
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (!isAllowedIn(part, text[at]) && !isEscape(text, at)) return false;
    }
    return true;
}

void appendEncoded(std::string& out, std::string_view text, URLCharacters part) {
    for (const char c : text) {
        if (isAllowedIn(part, c)) {
            out += c;
            continue;
        }
        out += '%';
        appendHex(out, c, upperHexDigits);
    }
}

std::string decodedBytes(std::string_view text, std::string_view kept) {
    std::string out;
    out.reserve(text.size());
    std::size_t at = 0;
    while (at < text.size()) {
        if (isEscape(text, at)) {
            const char byte = static_cast<char>(hexValue(text[at + 1]) * 16 + hexValue(text[at + 2]));
            if (kept.find(byte) == std::string_view::npos) {
                out += byte;
                at += 3;
                continue;
            }
        }
        out += text[at++];
    }
    return out;
}

std::string decodedText(std::string_view text, std::string_view kept) {
    std::string bytes = decodedBytes(text, kept);
    return isUTF8(bytes) ? bytes : std::string(text);
}

}  // namespace VanticRestKit::detail
