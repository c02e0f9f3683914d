#include <VanticRestKit/platform/url/detail/UTF8.h>

namespace VanticRestKit::detail {

namespace {

/// The number of bytes of the character that begins with `lead`; 0 where none may.
std::size_t lengthOf(unsigned char lead) noexcept {
    if (lead < 0x80) return 1;
    if (lead < 0xC2) return 0;
    if (lead < 0xE0) return 2;
    if (lead < 0xF0) return 3;
    return lead < 0xF5 ? 4 : 0;
}

/// Whether `second` may follow `lead`. Overlong forms, surrogates and numbers that are too large show here.
bool maySecondFollow(unsigned char lead, unsigned char second) noexcept {
    const unsigned char lowest = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    const unsigned char highest = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    return second >= lowest && second <= highest;
}

}  // namespace

bool isUTF8(std::string_view bytes) noexcept {
    std::size_t at = 0;
    while (at < bytes.size()) {
        const auto lead = static_cast<unsigned char>(bytes[at]);
        const std::size_t length = lengthOf(lead);
        if (length == 0 || bytes.size() - at < length) return false;
        for (std::size_t i = 1; i < length; ++i) {
            const auto next = static_cast<unsigned char>(bytes[at + i]);
            if (i == 1 ? !maySecondFollow(lead, next) : (next & 0xC0) != 0x80) return false;
        }
        at += length;
    }
    return true;
}

}  // namespace VanticRestKit::detail
