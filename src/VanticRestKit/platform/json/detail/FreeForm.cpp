#include <VanticRestKit/platform/json/detail/FreeForm.h>

#include <VanticRestKit/platform/json/detail/Number.h>
#include <VanticRestKit/platform/json/detail/Scanner.h>

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace VanticRestKit::json {

namespace {

/// The value at `at`, trying string, integer, double and boolean in this order; empty if it is none of them.
std::optional<AnyValue> plainValue(const char* at, const char* end, std::string& scratch) {
    if (*at == '"') {
        const std::optional<std::string_view> text = unescape(scanString(at, end), scratch);
        return text ? std::optional<AnyValue>(*text) : std::nullopt;
    }
    if (startsNumber(*at)) {
        const char* const numberEnd = scanNumber(at);
        if (const std::optional<std::int64_t> whole = readInteger(at, numberEnd)) return *whole;
        const std::optional<double> fraction = readNumber(at, numberEnd);
        return fraction ? std::optional<AnyValue>(*fraction) : std::nullopt;
    }
    if (*at == 't' || *at == 'f') return AnyValue(*at == 't');
    return std::nullopt;
}

/// The overhead of a tree node of the standard library.
constexpr std::size_t nodeOverhead = 32;

}  // namespace

bool readDictionary(const char* at, const char* end, Dictionary& values, MemoryBudget& memory,
                    std::vector<BrokenMember>* broken) {
    std::set<std::string, std::less<>> seen;
    std::string scratch;
    at = skipSpace(at + 1);
    while (*at == '"') {
        const StringToken token = scanString(at, end);
        const std::optional<std::string_view> key = unescape(token, scratch);
        if (!key) return false;
        // The first of several equal keys is used, even if its value is left out.
        const auto [name, isFirst] = seen.emplace(*key);
        at = skipSpace(skipSpace(token.close + 1) + 1);
        if (isFirst) {
            const std::uint64_t nodeSize = nodeOverhead + sizeof(std::string) + name->size();
            if (!memory.take(nodeSize)) return false;
            std::optional<AnyValue> value = plainValue(at, end, scratch);
            if (value) {
                const std::string* const text = value->text();
                if (!memory.take(nodeSize + sizeof(AnyValue) + (text != nullptr ? text->size() : 0)))
                    return false;
                values.insert_or_assign(*name, *std::move(value));
            } else if (broken != nullptr && (*at == '"' || startsNumber(*at))) {
                broken->push_back({*name, at});
            }
        }
        at = skipSpace(skipValue(at, end, 0));
        if (*at == ',') at = skipSpace(at + 1);
    }
    return true;
}

}  // namespace VanticRestKit::json
