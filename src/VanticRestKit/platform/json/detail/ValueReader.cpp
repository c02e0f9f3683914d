#include <VanticRestKit/platform/json/detail/ValueReader.h>

#include <VanticRestKit/platform/json/detail/Number.h>
#include <VanticRestKit/platform/json/detail/Scanner.h>
#include <VanticRestKit/platform/json/detail/StoreText.h>

#include <optional>

namespace VanticRestKit::json {

namespace {

template <class T>
void store(void* place, bool isOptional, T value) {
    if (isOptional) {
        *static_cast<std::optional<T>*>(place) = value;
    } else {
        *static_cast<T*>(place) = value;
    }
}

/// Parses the number token at `at` with `read`, and moves past it if it fits.
template <class Number>
bool numberInto(const char*& at, std::optional<Number> (*read)(const char*, const char*) noexcept,
                void* place, bool isOptional) {
    if (!startsNumber(*at)) return false;
    const char* const end = scanNumber(at);
    const std::optional<Number> value = read(at, end);
    if (!value) return false;
    store(place, isOptional, *value);
    at = end;
    return true;
}
}  // namespace

Fit ValueReader::plain(const TypePlan& type, void* place, const FieldOps* optional) {
    const bool isOptional = optional != nullptr;
    const auto fit = [](bool fits) { return fits ? Fit::fits : Fit::unfit; };
    switch (type.kind) {
        case ValueKind::text: return textInto(place, isOptional);
        case ValueKind::unsignedInteger: return fit(numberInto(at_, readUnsigned, place, isOptional));
        case ValueKind::integer: return fit(numberInto(at_, readInteger, place, isOptional));
        case ValueKind::number: return fit(numberInto(at_, readNumber, place, isOptional));
        case ValueKind::boolean: {
            if (*at_ != 't' && *at_ != 'f') return Fit::unfit;
            const bool value = *at_ == 't';
            const char* const next = scanLiteral(at_, end_);
            if (next == nullptr) return Fit::broken;
            at_ = next;
            store(place, isOptional, value);
            return Fit::fits;
        }
        case ValueKind::decimalOrText: return decimalOrTextInto(place, isOptional);
        case ValueKind::narrowInteger:
        case ValueKind::convertedText:
        case ValueKind::convertedNumber: return convertedInto(type, place, optional);
        case ValueKind::anything: return Fit::fits;
        default: return Fit::unfit;
    }
}

Fit ValueReader::readText(std::string_view& text, bool& isPlain) {
    if (*at_ != '"') return Fit::unfit;
    const StringToken token = scanString(at_, end_);
    if (token.close == nullptr) return Fit::broken;
    isPlain = token.isPlain;
    if (token.isPlain) {
        text = {token.inside, static_cast<std::size_t>(token.close - token.inside)};
    } else {
        const std::optional<std::string_view> unescaped = unescape(token, scratch_);
        if (!unescaped) return Fit::unfit;
        text = *unescaped;
    }
    at_ = token.close + 1;
    return Fit::fits;
}

Fit ValueReader::textInto(void* place, bool isOptional) {
    std::string_view text;
    bool isPlain = false;
    const Fit fit = readText(text, isPlain);
    if (fit != Fit::fits) return fit;
    if (text.size() > shortText) memory_->note(text.size());
    storeText(place, isOptional, text, isPlain);
    return fit;
}

Fit ValueReader::decimalOrTextInto(void* place, bool isOptional) {
    if (!startsNumber(*at_)) return textInto(place, isOptional);
    std::uint64_t number = 0;
    if (!numberInto(at_, readUnsigned, &number, false)) return Fit::unfit;
    store(place, isOptional, std::to_string(number));
    return Fit::fits;
}

Fit ValueReader::convertedInto(const TypePlan& type, void* place, const FieldOps* optional) {
    const char* const before = at_;
    std::string_view text;
    double number = 0;
    std::int64_t integer = 0;
    if (type.kind == ValueKind::convertedText) {
        bool isPlain = false;
        const Fit fit = readText(text, isPlain);
        if (fit != Fit::fits) return fit;
    } else if (type.kind == ValueKind::narrowInteger) {
        if (!numberInto(at_, readInteger, &integer, false)) return Fit::unfit;
    } else if (!numberInto(at_, readNumber, &number, false)) {
        return Fit::unfit;
    }
    // A field that already holds a value keeps it if the new one does not fit.
    const void* const held = optional != nullptr ? optional->peek(place) : place;
    void* const value = held != nullptr ? const_cast<void*>(held) : optional->open(place);
    const bool fits = type.kind == ValueKind::convertedText   ? type.fromText(text, value)
                      : type.kind == ValueKind::narrowInteger ? type.fromInteger(integer, value)
                                                              : type.fromNumber(number, value);
    if (fits) return Fit::fits;
    if (held == nullptr) optional->reset(place);
    at_ = before;
    return Fit::unfit;
}

}  // namespace VanticRestKit::json
