#include <VanticRestKit/platform/text/detail/LetterCase.h>

#include <VanticRestKit/platform/text/detail/Unicode.h>
#include <VanticRestKit/platform/text/detail/UTF8.h>

#include <utf8proc.h>

#include <cstdlib>
#include <optional>

namespace VanticRestKit::detail {

namespace {

/// The only character whose lower case is two characters: capital I with dot above becomes i and a combining dot.
constexpr char32_t dottedCapitalI = 0x130;
constexpr std::string_view dottedSmallI = "i\u0307";

/// The only non-ASCII character whose lower case is ASCII: the Kelvin sign becomes k.
constexpr std::string_view kelvinSign = "\u212A";

/// `text` case-folded and canonically decomposed; empty if it is not UTF-8.
///
/// The only use of utf8proc: full case folding, decomposition and canonical order need several large tables and
/// an algorithm over them. All other Unicode data of the library is in `UnicodeTables.inc`.
std::optional<std::string> folded(std::string_view text) {
    utf8proc_uint8_t* mapped = nullptr;
    const auto options =
        static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_DECOMPOSE | UTF8PROC_CASEFOLD);
    const utf8proc_ssize_t size = utf8proc_map(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                               static_cast<utf8proc_ssize_t>(text.size()), &mapped, options);
    if (size < 0) return std::nullopt;
    std::string result(reinterpret_cast<const char*>(mapped), static_cast<std::size_t>(size));
    std::free(mapped);
    return result;
}

}  // namespace

std::string lowercased(std::string_view text) {
    std::string lowered;
    lowered.reserve(text.size());
    while (!text.empty()) {
        const UTF8Character character = firstCharacter(text);
        if (character.length == 0) {
            lowered += text.front();
            text.remove_prefix(1);
            continue;
        }
        if (character.code == dottedCapitalI) {
            lowered += dottedSmallI;
        } else {
            appendUTF8(lowered, lowerCase(character.code));
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

bool sameIgnoringCase(std::string_view a, std::string_view b) {
    if (a == b) return true;
    const std::optional<std::string> first = folded(a);
    const std::optional<std::string> second = folded(b);
    return first && second && *first == *second;
}

}  // namespace VanticRestKit::detail
