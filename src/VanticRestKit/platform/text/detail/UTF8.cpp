#include <VanticRestKit/platform/text/detail/UTF8.h>

namespace VanticRestKit::detail {

bool isUTF8(std::string_view bytes) noexcept {
    while (!bytes.empty()) {
        const std::size_t length = characterLength(bytes.data(), bytes.size());
        if (length == 0) return false;
        bytes.remove_prefix(length);
    }
    return true;
}

UTF8Character firstCharacter(std::string_view text) noexcept {
    const std::size_t length = characterLength(text.data(), text.size());
    if (length == 0) return {};
    const auto lead = static_cast<unsigned char>(text[0]);
    if (length == 1) return {lead, 1};
    // The lead byte of n bytes begins with n ones and a zero.
    char32_t code = lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        code = code << 6 | (static_cast<unsigned char>(text[i]) & 0x3FU);
    }
    return {code, length};
}

}  // namespace VanticRestKit::detail
