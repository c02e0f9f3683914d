#include <VanticRestKit/platform/json/detail/Number.h>

#include <charconv>
#include <limits>
#include <system_error>

namespace VanticRestKit::json {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

const char* skipDigits(const char* at, const char* to) {
    while (at != to && isDigit(*at)) ++at;
    return at;
}

/// The parts of a well-formed number token.
struct NumberParts {
    bool negative = false;
    const char* whole = nullptr;  // the digits before the point, up to wholeEnd
    const char* wholeEnd = nullptr;
    const char* fraction = nullptr;  // the digits after the point, up to fractionEnd
    const char* fractionEnd = nullptr;
    const char* exponent = nullptr;  // the digits of the exponent, up to the end of the token
    const char* exponentEnd = nullptr;
    bool negativeExponent = false;
};

std::optional<NumberParts> splitNumber(const char* at, const char* to) {
    NumberParts s;
    if (at != to && *at == '-') {
        s.negative = true;
        ++at;
    }
    s.whole = at;
    s.wholeEnd = skipDigits(at, to);
    const auto digits = s.wholeEnd - s.whole;
    if (digits == 0 || (digits > 1 && *s.whole == '0')) return std::nullopt;
    at = s.wholeEnd;
    s.fraction = s.fractionEnd = at;
    if (at != to && *at == '.') {
        s.fraction = at + 1;
        s.fractionEnd = skipDigits(s.fraction, to);
        if (s.fraction == s.fractionEnd) return std::nullopt;
        at = s.fractionEnd;
    }
    s.exponent = s.exponentEnd = at;
    if (at != to && (*at == 'e' || *at == 'E')) {
        ++at;
        if (at != to && (*at == '+' || *at == '-')) {
            s.negativeExponent = *at == '-';
            ++at;
        }
        s.exponent = at;
        s.exponentEnd = skipDigits(at, to);
        if (s.exponent == s.exponentEnd) return std::nullopt;
        at = s.exponentEnd;
    }
    if (at != to) return std::nullopt;
    return s;
}

/// The exponent, limited to a range beyond which it makes no difference to a token that fits in memory.
long long exponentOf(const NumberParts& s) {
    constexpr long long limit = 1'000'000'000'000;
    long long value = 0;
    for (const char* at = s.exponent; at != s.exponentEnd && value < limit; ++at) {
        value = value * 10 + (*at - '0');
    }
    return s.negativeExponent ? -value : value;
}

/// The digits of a token without the decimal point.
class Digits {
public:
    explicit Digits(const NumberParts& s)
        : whole_(s.whole),
          wholeSize_(s.wholeEnd - s.whole),
          fraction_(s.fraction),
          size_(wholeSize_ + (s.fractionEnd - s.fraction)) {}

    long long size() const { return size_; }
    int operator[](long long i) const {
        return (i < wholeSize_ ? whole_[i] : fraction_[i - wholeSize_]) - '0';
    }

private:
    const char* whole_;
    long long wholeSize_;
    const char* fraction_;
    long long size_;
};

/// The magnitude of a number if it is an integer that fits into 64 bits, in any spelling.
std::optional<std::uint64_t> magnitude(const NumberParts& s) {
    const Digits digits(s);
    // The number of digits before the decimal point after the exponent is applied.
    const long long point = (s.wholeEnd - s.whole) + exponentOf(s);
    long long last = digits.size();
    while (last > 0 && digits[last - 1] == 0) --last;
    if (last == 0) return 0;
    if (last > point) return std::nullopt;

    std::uint64_t value = 0;
    for (long long i = 0; i < point; ++i) {
        const auto digit = static_cast<std::uint64_t>(i < last ? digits[i] : 0);
        if (value > (std::numeric_limits<std::uint64_t>::max() - digit) / 10) return std::nullopt;
        value = value * 10 + digit;
    }
    return value;
}

}  // namespace

std::optional<std::uint64_t> readUnsigned(const char* from, const char* to) noexcept {
    // Fast path: nearly every number consists only of a few digits.
    if (to - from <= 19 && *from != '-' && (*from != '0' || to - from == 1)) {
        std::uint64_t value = 0;
        const char* at = from;
        while (at != to && isDigit(*at)) value = value * 10 + static_cast<std::uint64_t>(*at++ - '0');
        if (at == to) return value;
    }
    const std::optional<NumberParts> s = splitNumber(from, to);
    if (!s) return std::nullopt;
    const std::optional<std::uint64_t> value = magnitude(*s);
    if (s->negative && value != 0) return std::nullopt;
    return value;
}

std::optional<std::int64_t> readInteger(const char* from, const char* to) noexcept {
    const std::optional<NumberParts> s = splitNumber(from, to);
    if (!s) return std::nullopt;
    const std::optional<std::uint64_t> value = magnitude(*s);
    constexpr auto max = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    if (!value || *value > max + (s->negative ? 1 : 0)) return std::nullopt;
    return s->negative ? static_cast<std::int64_t>(0 - *value) : static_cast<std::int64_t>(*value);
}

std::optional<double> readNumber(const char* from, const char* to) noexcept {
    const std::optional<NumberParts> s = splitNumber(from, to);
    if (!s) return std::nullopt;
    double value = 0;
    const auto [end, fault] = std::from_chars(from, to, value);
    if (fault != std::errc() || end != to) return std::nullopt;
    return value;
}

}  // namespace VanticRestKit::json
