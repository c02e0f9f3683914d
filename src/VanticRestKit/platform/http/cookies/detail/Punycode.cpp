#include <VanticRestKit/platform/http/cookies/detail/Punycode.h>

#include <VanticRestKit/platform/text/detail/UTF8.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace VanticRestKit::detail {

namespace {

// The parameters of Punycode, as named in RFC 3492.
constexpr std::uint32_t base = 36;
constexpr std::uint32_t tMin = 1;
constexpr std::uint32_t tMax = 26;
constexpr std::uint32_t skew = 38;
constexpr std::uint32_t damp = 700;
constexpr std::uint32_t initialBias = 72;
constexpr std::uint32_t initialCode = 128;

// The maximum length of a host label in ASCII; it also keeps the arithmetic below within 32 bits.
constexpr std::size_t maxCharacters = 63;

char digitOf(std::uint32_t value) { return static_cast<char>(value < 26 ? 'a' + value : '0' + (value - 26)); }

std::uint32_t adaptedBias(std::uint32_t delta, std::uint32_t count, bool isFirst) {
    delta = isFirst ? delta / damp : delta / 2;
    delta += delta / count;
    std::uint32_t k = 0;
    while (delta > (base - tMin) * tMax / 2) {
        delta /= base - tMin;
        k += base;
    }
    return k + (base - tMin + 1) * delta / (delta + skew);
}

void appendNumber(std::string& text, std::uint32_t number, std::uint32_t bias) {
    for (std::uint32_t k = base;; k += base) {
        const std::uint32_t threshold = k <= bias ? tMin : std::min(k - bias, tMax);
        if (number < threshold) break;
        text += digitOf(threshold + (number - threshold) % (base - threshold));
        number = (number - threshold) / (base - threshold);
    }
    text += digitOf(number);
}

std::optional<std::vector<std::uint32_t>> charactersOf(std::string_view label) {
    std::vector<std::uint32_t> codes;
    while (!label.empty()) {
        const UTF8Character character = firstCharacter(label);
        if (character.length == 0 || codes.size() == maxCharacters) return std::nullopt;
        codes.push_back(character.code);
        label.remove_prefix(character.length);
    }
    return codes;
}

}  // namespace

std::optional<std::string> punycode(std::string_view label) {
    const auto codes = charactersOf(label);
    if (!codes) return std::nullopt;
    std::string text;
    for (const std::uint32_t code : *codes) {
        if (code < initialCode) text += static_cast<char>(code);
    }
    const auto basic = static_cast<std::uint32_t>(text.size());
    if (basic > 0) text += '-';
    std::uint32_t bias = initialBias;
    std::uint32_t delta = 0;
    std::uint32_t next = initialCode;
    for (std::uint32_t handled = basic; handled < codes->size();) {
        std::uint32_t smallest = UINT32_MAX;
        for (const std::uint32_t code : *codes) {
            if (code >= next) smallest = std::min(smallest, code);
        }
        delta += (smallest - next) * (handled + 1);
        next = smallest;
        for (const std::uint32_t code : *codes) {
            if (code < next) ++delta;
            if (code != next) continue;
            appendNumber(text, delta, bias);
            bias = adaptedBias(delta, handled + 1, handled == basic);
            delta = 0;
            ++handled;
        }
        ++delta;
        ++next;
    }
    return text;
}

}  // namespace VanticRestKit::detail
