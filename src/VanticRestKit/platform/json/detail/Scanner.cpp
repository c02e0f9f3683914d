#include <VanticRestKit/platform/json/detail/Scanner.h>

#include <VanticRestKit/platform/json/detail/Skipper.h>
#include <VanticRestKit/platform/text/detail/Hex.h>
#include <VanticRestKit/platform/text/detail/UTF8.h>

#include <cstring>

namespace VanticRestKit::json {

namespace {

/// The four hexadecimal digits at `at`, or nothing.
std::optional<std::uint32_t> hexUnit(const char* at, const char* end) {
    if (end - at < 4) return std::nullopt;
    std::uint32_t unit = 0;
    for (int i = 0; i < 4; ++i) {
        const int digit = detail::hexValue(at[i]);
        if (digit < 0) return std::nullopt;
        unit = unit << 4 | static_cast<std::uint32_t>(digit);
    }
    return unit;
}

bool isHighSurrogate(std::uint32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool isLowSurrogate(std::uint32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

/// Appends the character of the `\u` escape whose digits begin at `at`; returns the end of the escape, or null.
const char* appendUnicodeEscape(const char* at, const char* end, std::string& text) {
    const std::optional<std::uint32_t> first = hexUnit(at, end);
    if (!first || isLowSurrogate(*first)) return nullptr;
    at += 4;
    if (!isHighSurrogate(*first)) {
        detail::appendUTF8(text, *first);
        return at;
    }
    if (end - at < 6 || at[0] != '\\' || at[1] != 'u') return nullptr;
    const std::optional<std::uint32_t> second = hexUnit(at + 2, end);
    if (!second || !isLowSurrogate(*second)) return nullptr;
    detail::appendUTF8(text, 0x10000 + ((*first - 0xD800) << 10) + (*second - 0xDC00));
    return at + 6;
}

/// The character of a one-letter escape, or NUL if it is not one.
char plainEscape(char letter) {
    switch (letter) {
        case '"': return '"';
        case '\\': return '\\';
        case '/': return '/';
        case 'b': return '\b';
        case 'f': return '\f';
        case 'n': return '\n';
        case 'r': return '\r';
        case 't': return '\t';
        default: return '\0';
    }
}

}  // namespace

const char* documentStart(const char* begin, const char* end) noexcept {
    if (end - begin >= 3 && std::memcmp(begin, "\xEF\xBB\xBF", 3) == 0) begin += 3;
    return skipSpace(begin);
}

StringToken scanUnusualString(const char* inside, const char* at, const char* end) noexcept {
    while (at < end && *at != '"') {
        if (*at != '\\') {
            ++at;
        } else if (at[1] != 'u') {
            at += 2;  // the escaped byte may be a quote
        } else {
            // `\u` consumes the next four bytes, whatever they are, but a quote among them is a structural error.
            if (std::memchr(at + 2, '"', 4) != nullptr) return {inside, nullptr, false};
            at += 6;
        }
    }
    return {inside, at < end ? at : nullptr, false};
}

std::optional<std::string_view> unescape(const StringToken& token, std::string& scratch) {
    const std::string_view raw(token.inside, static_cast<std::size_t>(token.close - token.inside));
    if (!detail::isUTF8(raw)) return std::nullopt;
    bool hasEscapes = false;
    for (const char c : raw) {
        if (static_cast<unsigned char>(c) < 0x20) return std::nullopt;
        hasEscapes = hasEscapes || c == '\\';
    }
    if (!hasEscapes) return raw;

    scratch.clear();
    for (const char* at = token.inside; at != token.close;) {
        if (*at != '\\') {
            scratch.push_back(*at++);
        } else if (at[1] == 'u') {
            at = appendUnicodeEscape(at + 2, token.close, scratch);
            if (at == nullptr) return std::nullopt;
        } else {
            const char letter = plainEscape(at[1]);
            if (letter == '\0') return std::nullopt;
            scratch.push_back(letter);
            at += 2;
        }
    }
    return scratch;
}

const char* scanLiteral(const char* at, const char* end) noexcept {
    using namespace std::string_view_literals;
    for (const std::string_view literal : {"true"sv, "false"sv, "null"sv}) {
        if (*at != literal.front()) continue;
        const auto left = static_cast<std::size_t>(end - at);
        if (left < literal.size() || std::memcmp(at, literal.data(), literal.size()) != 0) return nullptr;
        return at + literal.size();
    }
    return nullptr;
}

const char* skipValue(const char* at, const char* end, std::size_t depth) noexcept {
    if (*at == '"') {
        const StringToken token = scanString(at, end);
        return token.close == nullptr ? nullptr : token.close + 1;
    }
    if (startsNumber(*at)) return scanNumber(at);
    if (*at != '{' && *at != '[') return scanLiteral(at, end);
    return Skipper<Unobserved>(at, end, depth, {}).run();
}

}  // namespace VanticRestKit::json
