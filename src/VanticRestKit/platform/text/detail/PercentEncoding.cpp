#include <VanticRestKit/platform/text/detail/PercentEncoding.h>

#include <VanticRestKit/platform/text/detail/Hex.h>
#include <VanticRestKit/platform/text/detail/Unicode.h>
#include <VanticRestKit/platform/text/detail/UTF8.h>

#include <algorithm>

namespace VanticRestKit::detail {

namespace {

bool isKept(char32_t code) {
    return isAlphanumeric(code) || code == '-' || code == '.' || code == '_' || code == '~';
}

void appendEncoded(std::string& encoded, std::string_view bytes) {
    for (const char byte : bytes) {
        encoded += '%';
        appendHex(encoded, byte, upperHexDigits);
    }
}

}  // namespace

std::string paramsEncoded(std::string_view text) {
    std::string encoded;
    encoded.reserve(text.size());
    while (!text.empty()) {
        const UTF8Character character = firstCharacter(text);
        const std::string_view bytes = text.substr(0, std::max<std::size_t>(character.length, 1));
        if (character.length != 0 && isKept(character.code)) {
            encoded += bytes;
        } else {
            appendEncoded(encoded, bytes);
        }
        text.remove_prefix(bytes.size());
    }
    return encoded;
}

}  // namespace VanticRestKit::detail
