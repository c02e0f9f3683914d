#include <VanticRestKit/platform/json/detail/Scanner.h>

namespace VanticRestKit::json {

namespace {

int hexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

/// The four hexadecimal digits at `at`, or nothing.
std::optional<std::uint32_t> hexUnit(const char* at, const char* end) {
    if (end - at < 4) return std::nullopt;
    std::uint32_t unit = 0;
    for (int i = 0; i < 4; ++i) {
        const int digit = hexDigit(at[i]);
        if (digit < 0) return std::nullopt;
        unit = unit << 4 | static_cast<std::uint32_t>(digit);
    }
    return unit;
}

void appendUTF8(std::string& text, std::uint32_t point) {
    const auto put = [&text](std::uint32_t byte) { text.push_back(static_cast<char>(byte)); };
    if (point < 0x80) {
        put(point);
    } else if (point < 0x800) {
        put(0xC0 | point >> 6);
        put(0x80 | (point & 0x3F));
    } else if (point < 0x10000) {
        put(0xE0 | point >> 12);
        put(0x80 | (point >> 6 & 0x3F));
        put(0x80 | (point & 0x3F));
    } else {
        put(0xF0 | point >> 18);
        put(0x80 | (point >> 12 & 0x3F));
        put(0x80 | (point >> 6 & 0x3F));
        put(0x80 | (point & 0x3F));
    }
}

bool isHighSurrogate(std::uint32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool isLowSurrogate(std::uint32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

/// Appends what the `\u` escape whose digits begin at `at` stands for; returns behind it, or null.
const char* appendUnicodeEscape(const char* at, const char* end, std::string& text) {
    const std::optional<std::uint32_t> first = hexUnit(at, end);
    if (!first || isLowSurrogate(*first)) return nullptr;
    at += 4;
    if (!isHighSurrogate(*first)) {
        appendUTF8(text, *first);
        return at;
    }
    if (end - at < 6 || at[0] != '\\' || at[1] != 'u') return nullptr;
    const std::optional<std::uint32_t> second = hexUnit(at + 2, end);
    if (!second || !isLowSurrogate(*second)) return nullptr;
    appendUTF8(text, 0x10000 + ((*first - 0xD800) << 10) + (*second - 0xDC00));
    return at + 6;
}

/// What a one-letter escape stands for, or NUL where it is none.
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

std::size_t sequenceLength(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead <= 0xDF) return 2;
    if (lead >= 0xE0 && lead <= 0xEF) return 3;
    if (lead >= 0xF0 && lead <= 0xF4) return 4;
    return 0;
}

/// The second byte is where overlong forms, surrogates and points beyond Unicode show.
bool secondByteFits(unsigned char lead, unsigned char second) {
    switch (lead) {
        case 0xE0: return second >= 0xA0;
        case 0xED: return second <= 0x9F;
        case 0xF0: return second >= 0x90;
        case 0xF4: return second <= 0x8F;
        default: return true;
    }
}

}  // namespace

bool isUTF8(std::string_view bytes) noexcept {
    const auto byte = [bytes](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t length = sequenceLength(byte(at));
        if (length == 0 || at + length > bytes.size()) return false;
        for (std::size_t i = 1; i < length; ++i) {
            if ((byte(at + i) & 0xC0) != 0x80) return false;
        }
        if (length > 1 && !secondByteFits(byte(at), byte(at + 1))) return false;
        at += length;
    }
    return true;
}

StringToken scanUnusualString(const char* inside, const char* at, const char* end) noexcept {
    while (at < end && *at != '"') {
        if (*at != '\\') {
            ++at;
        } else {
            // A backslash hides the byte behind it, and `\u` the four behind that, whatever they are.
            at += at[1] == 'u' ? 6 : 2;
        }
    }
    return {inside, at < end ? at : nullptr, false};
}

std::optional<std::string_view> unescape(const StringToken& token, std::string& scratch) {
    const std::string_view raw(token.inside, static_cast<std::size_t>(token.close - token.inside));
    if (!isUTF8(raw)) return std::nullopt;
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

}  // namespace VanticRestKit::json
