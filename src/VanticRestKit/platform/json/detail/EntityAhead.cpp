#include <VanticRestKit/platform/json/detail/EntityAhead.h>

#include <VanticRestKit/platform/json/detail/Scanner.h>

namespace VanticRestKit::json {

namespace {

/// The text of a string token; empty if it cannot be read.
std::optional<std::string_view> textOf(const StringToken& token, std::string& scratch) {
    if (token.close == nullptr) return std::nullopt;
    if (token.isPlain)
        return std::string_view(token.inside, static_cast<std::size_t>(token.close - token.inside));
    return unescape(token, scratch);
}

}  // namespace

std::optional<std::string_view> entityAhead(const char* at, const char* end, std::size_t depth,
                                            std::string& scratch) {
    at = skipSpace(at + 1);
    while (*at == '"') {
        const StringToken token = scanString(at, end);
        const std::optional<std::string_view> key = textOf(token, scratch);
        if (!key) return std::nullopt;
        const bool isEntity = *key == "_entity";
        at = skipSpace(token.close + 1);
        if (*at != ':') return std::nullopt;
        at = skipSpace(at + 1);
        if (isEntity) return *at == '"' ? textOf(scanString(at, end), scratch) : std::nullopt;
        at = skipValue(at, end, depth + 1);
        if (at == nullptr) return std::nullopt;
        at = skipSpace(at);
        if (*at != ',') return std::nullopt;
        at = skipSpace(at + 1);
    }
    return std::nullopt;
}

}  // namespace VanticRestKit::json
