#include <VanticRestKit/platform/json/detail/Scanner.h>
#include <VanticRestKit/platform/json/detail/Skipper.h>

#include <cstring>
#include <string_view>

namespace VanticRestKit::json {

const char* documentStart(const char* begin, const char* end) noexcept {
    if (end - begin >= 3 && std::memcmp(begin, "\xEF\xBB\xBF", 3) == 0) begin += 3;
    return skipSpace(begin);
}

const char* scanLiteral(const char* at, const char* end) noexcept {
    using namespace std::string_view_literals;
    for (const std::string_view literal : {"true"sv, "false"sv, "null"sv}) {
        if (*at != literal.front()) continue;
        const auto left = static_cast<std::size_t>(end - at);
        if (left < literal.size() || std::memcmp(at, literal.data(), literal.size()) != 0) return nullptr;
        return at + literal.size();
    }
    return nullptr;
}

const char* skipValue(const char* at, const char* end, std::size_t depth) noexcept {
    if (*at == '"') {
        const StringToken token = scanString(at, end);
        return token.close == nullptr ? nullptr : token.close + 1;
    }
    if (startsNumber(*at)) return scanNumber(at);
    if (*at != '{' && *at != '[') return scanLiteral(at, end);
    return Skipper<Unobserved>(at, end, depth, {}).run();
}

}  // namespace VanticRestKit::json
