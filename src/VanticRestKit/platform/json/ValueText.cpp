#include <VanticRestKit/platform/json/ValueText.h>

#include <VanticRestKit/platform/date/Date.h>
#include <VanticRestKit/platform/error/AnyValue.h>
#include <VanticRestKit/platform/json/detail/TypePlan.h>

#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>

namespace VanticRestKit {

namespace {

using namespace mapping;  // the plans

/// "2020-01-02T03:04:05.25Z", or the seconds since 1970 if the year does not have four digits.
std::string dateText(Date date) {
    const double seconds = date.time_since_epoch().count();
    constexpr double firstYear = -62135596800;  // 0001-01-01
    constexpr double lastYear = 253402300800;   // 10000-01-01
    if (!(seconds >= firstYear && seconds < lastYear)) return numberText(seconds);

    // Whole seconds and microseconds are handled separately: together they have more digits than a double holds.
    double whole = std::floor(seconds);
    auto microseconds = static_cast<long>(std::lround((seconds - whole) * 1e6));
    if (microseconds == 1'000'000) {
        microseconds = 0;
        // Not beyond the last year: so far from 1970, doubles are more than a microsecond apart.
        whole += 1;
    }
    const std::chrono::sys_seconds time{std::chrono::seconds(static_cast<long long>(whole))};
    const auto day = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day calendar(day);
    const std::chrono::hh_mm_ss clock(time - day);
    char text[64];
    std::snprintf(text, sizeof text, "\"%04d-%02u-%02uT%02d:%02d:%02d", static_cast<int>(calendar.year()),
                  static_cast<unsigned>(calendar.month()), static_cast<unsigned>(calendar.day()),
                  static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
                  static_cast<int>(clock.seconds().count()));
    std::string result = text;
    if (microseconds != 0) {
        std::snprintf(text, sizeof text, ".%06ld", microseconds);
        std::string fraction = text;
        fraction.erase(fraction.find_last_not_of('0') + 1);
        result += fraction;
    }
    return result + "Z\"";
}

std::string plainText(const AnyValue& value) {
    if (const std::string* text = value.text()) return quotedText(*text);
    if (const std::int64_t* number = value.integer()) return std::to_string(*number);
    if (const bool* truth = value.boolean()) return *truth ? "true" : "false";
    if (const double* number = value.number()) return numberText(*number);
    return "null";
}

/// Appends a character that must be escaped in a JSON string.
void appendEscaped(std::string& quoted, char c) {
    switch (c) {
        case '"': quoted += "\\\""; return;
        case '\\': quoted += "\\\\"; return;
        case '\n': quoted += "\\n"; return;
        case '\r': quoted += "\\r"; return;
        case '\t': quoted += "\\t"; return;
        default: break;
    }
    char escape[8];
    std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(c));
    quoted += escape;
}

/// Appends a JSON string, copying runs that need no escape in one call.
void appendQuoted(std::string& quoted, std::string_view text) {
    quoted += '"';
    std::size_t plain = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char c = text[at];
        if (c != '"' && c != '\\' && static_cast<unsigned char>(c) >= 0x20) continue;
        quoted.append(text, plain, at - plain);
        appendEscaped(quoted, c);
        plain = at + 1;
    }
    quoted.append(text, plain);
    quoted += '"';
}

/// Writes values recursively. The depth is bounded by the depth limit of documents.
class Writer {
public:
    explicit Writer(ValueLayout layout) : indented_(layout == ValueLayout::indented) {}

    void value(const TypePlan& plan, const void* value) {
        switch (plan.kind) {
            case ValueKind::text:
            case ValueKind::decimalOrText:
                appendQuoted(text_, *static_cast<const std::string*>(value));
                break;
            case ValueKind::boolean: text_ += *static_cast<const bool*>(value) ? "true" : "false"; break;
            case ValueKind::integer: text_ += std::to_string(*static_cast<const std::int64_t*>(value)); break;
            case ValueKind::narrowInteger: text_ += std::to_string(plan.toInteger(value)); break;
            case ValueKind::unsignedInteger:
                text_ += std::to_string(*static_cast<const std::uint64_t*>(value));
                break;
            case ValueKind::number: text_ += numberText(*static_cast<const double*>(value)); break;
            case ValueKind::convertedText:
            case ValueKind::convertedNumber:
                text_ += plan.caseName != nullptr ? quotedText(plan.caseName(value))
                                                  : dateText(*static_cast<const Date*>(value));
                break;
            case ValueKind::object: object(*plan.object, value); break;
            case ValueKind::list: list(*plan.list, value); break;
            case ValueKind::choice: choice(*plan.choice, value); break;
            case ValueKind::attempted:
            case ValueKind::nullable: {
                const void* const held = plan.peek(value);
                held != nullptr ? this->value(*plan.wrapped, held) : void(text_ += "null");
                break;
            }
            case ValueKind::dictionary: dictionary(*static_cast<const Dictionary*>(value)); break;
            case ValueKind::anything:
            case ValueKind::verbatim: text_ += "{}"; break;
        }
    }

    std::string take() { return std::move(text_); }

private:
    void object(const ObjectPlan& plan, const void* entity) {
        open('{');
        for (const MemberPlan& member : plan.members) {
            name(member.name);
            const void* const held = member.ops->peek(static_cast<const std::byte*>(entity) + member.offset);
            held != nullptr ? value(*member.type, held) : void(text_ += "null");
        }
        close('}', !plan.members.empty());
    }

    void list(const ListPlan& plan, const void* list) {
        open('[');
        const std::size_t count = plan.count(list);
        for (std::size_t i = 0; i < count; ++i) {
            separate();
            value(plan.element(), plan.at(list, i));
        }
        close(']', count != 0);
    }

    void choice(const ChoicePlan& plan, const void* chosen) {
        const TypePlan& type = plan.candidates[plan.which(chosen)].type();
        open('{');
        name(type.name);
        value(type, plan.held(chosen));
        close('}', true);
    }

    void dictionary(const Dictionary& values) {
        open('{');
        for (const auto& [key, held] : values) {
            name(key);
            text_ += plainText(held);
        }
        close('}', !values.empty());
    }

    void name(std::string_view name) {
        separate();
        appendQuoted(text_, name);
        text_ += indented_ ? ": " : ":";
    }

    void open(char bracket) {
        text_ += bracket;
        ++depth_;
        isFirst_ = true;
    }

    void separate() {
        if (!isFirst_) text_ += ',';
        isFirst_ = false;
        line();
    }

    void close(char bracket, bool hasElements) {
        --depth_;
        if (hasElements) line();
        text_ += bracket;
        isFirst_ = false;
    }

    void line() {
        if (!indented_) return;
        text_ += '\n';
        text_.append(depth_ * 2, ' ');
    }

    bool indented_;
    bool isFirst_ = true;
    std::size_t depth_ = 0;
    std::string text_;
};

}  // namespace

std::string valueText(const TypePlan& plan, const void* value, ValueLayout layout) {
    Writer writer(layout);
    writer.value(plan, value);
    return writer.take();
}

std::string quotedText(std::string_view text) {
    std::string quoted;
    appendQuoted(quoted, text);
    return quoted;
}

std::string numberText(double number) {
    char text[512];
    // An integer is written in full if all its digits are exact.
    const bool isWhole = number == std::trunc(number) && std::abs(number) < 1e17;
    const auto [end, fault] =
        isWhole ? std::to_chars(text, text + sizeof text, number, std::chars_format::fixed, 0)
                : std::to_chars(text, text + sizeof text, number);
    return std::string(text, end);
}

}  // namespace VanticRestKit
