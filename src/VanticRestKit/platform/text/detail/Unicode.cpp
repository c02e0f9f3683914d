#include <VanticRestKit/platform/text/detail/Unicode.h>

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace VanticRestKit::detail {

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

struct LowerRun {
    char32_t first;
    char32_t last;
    char32_t step;
    std::int32_t distance;
};

#include <VanticRestKit/platform/text/detail/UnicodeTables.inc>

/// The last entry of a sorted table that begins at or before `code`, or null if there is none.
template <class Entry, std::size_t Count, class First>
const Entry* entryAtOrBefore(const Entry (&table)[Count], char32_t code, First first) {
    const Entry* const behind =
        std::upper_bound(std::begin(table), std::end(table), code,
                         [first](char32_t wanted, const Entry& entry) { return wanted < first(entry); });
    return behind == std::begin(table) ? nullptr : behind - 1;
}

bool isBetween(char32_t code, char32_t first, char32_t last) noexcept {
    return code >= first && code <= last;
}

}  // namespace

bool isAlphanumeric(char32_t code) noexcept {
    if (code < 0x80)
        return isBetween(code, 'a', 'z') || isBetween(code, 'A', 'Z') || isBetween(code, '0', '9');
    const Range* const range =
        entryAtOrBefore(alphanumericRanges, code, [](const Range& entry) { return entry.first; });
    return range != nullptr && code <= range->last;
}

int decimalDigit(char32_t code) noexcept {
    if (code < 0x80) return isBetween(code, '0', '9') ? static_cast<int>(code - '0') : -1;
    const char32_t* const zero = entryAtOrBefore(digitZeros, code, [](char32_t entry) { return entry; });
    return zero != nullptr && code - *zero < 10 ? static_cast<int>(code - *zero) : -1;
}

char32_t lowerCase(char32_t code) noexcept {
    if (code < 0x80) return isBetween(code, 'A', 'Z') ? code + ('a' - 'A') : code;
    const LowerRun* const run =
        entryAtOrBefore(lowerRuns, code, [](const LowerRun& entry) { return entry.first; });
    if (run == nullptr || code > run->last || (code - run->first) % run->step != 0) return code;
    return static_cast<char32_t>(static_cast<std::int32_t>(code) + run->distance);
}

}  // namespace VanticRestKit::detail
