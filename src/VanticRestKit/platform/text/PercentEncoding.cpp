#include <VanticRestKit/platform/text/detail/Hex.h>
#include <VanticRestKit/platform/text/detail/Unicode.h>
#include <VanticRestKit/platform/text/detail/UTF8.h>
#include <VanticRestKit/platform/text/PercentEncoding.h>

#include <algorithm>

namespace VanticRestKit {

namespace {

bool isKept(char32_t code) {
    return detail::isAlphanumeric(code) || code == '-' || code == '.' || code == '_' || code == '~';
}

void appendEncoded(std::string& encoded, std::string_view bytes) {
    for (const char byte : bytes) {
        encoded += '%';
        detail::appendHex(encoded, byte, detail::upperHexDigits);
    }
}

}  // namespace

std::string paramsEncoded(std::string_view text) {
    std::string encoded;
    encoded.reserve(text.size());
    while (!text.empty()) {
        const detail::UTF8Character character = detail::firstCharacter(text);
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

}  // namespace VanticRestKit
