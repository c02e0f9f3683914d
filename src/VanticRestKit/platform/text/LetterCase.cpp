#include <VanticRestKit/platform/text/detail/Unicode.h>
#include <VanticRestKit/platform/text/detail/UTF8.h>
#include <VanticRestKit/platform/text/LetterCase.h>

namespace VanticRestKit {

namespace {

/// The one character whose lower case is two: a capital I with a dot, which becomes an i and a dot above.
constexpr char32_t dottedCapitalI = 0x130;
constexpr std::string_view dottedSmallI = "i\u0307";

/// The one character beyond ASCII whose lower case is ASCII: the Kelvin sign, which becomes a k.
constexpr std::string_view kelvinSign = "\u212A";

}  // namespace

std::string lowercased(std::string_view text) {
    std::string lowered;
    lowered.reserve(text.size());
    while (!text.empty()) {
        const detail::UTF8Character character = detail::firstCharacter(text);
        if (character.length == 0) {
            lowered += text.front();
            text.remove_prefix(1);
            continue;
        }
        if (character.code == dottedCapitalI) {
            lowered += dottedSmallI;
        } else {
            detail::appendUTF8(lowered, detail::lowerCase(character.code));
        }
        text.remove_prefix(character.length);
    }
    return lowered;
}

bool equalsLowercased(std::string_view text, std::string_view lowered) noexcept {
    for (const char wanted : lowered) {
        if (static_cast<unsigned char>(wanted) >= 0x80 || text.empty()) return false;
        if (wanted == 'k' && text.starts_with(kelvinSign)) {
            text.remove_prefix(kelvinSign.size());
            continue;
        }
        const char given = text.front();
        const char small = given >= 'A' && given <= 'Z' ? static_cast<char>(given + ('a' - 'A')) : given;
        if (small != wanted) return false;
        text.remove_prefix(1);
    }
    return text.empty();
}

}  // namespace VanticRestKit
