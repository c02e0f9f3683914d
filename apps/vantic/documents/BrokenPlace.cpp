#include "documents/BrokenPlace.h"

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/json/detail/Scanner.h>
#include <VanticRestKit/platform/json/detail/Skipper.h>

#include <algorithm>

namespace vantic {

namespace json = VanticRestKit::json;

namespace {

bool beginsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0u) != 0x80u; }

TextPlace placeOf(std::string_view document, std::size_t offset) {
    const std::string_view before = document.substr(0, offset);
    const std::size_t lineStart = before.find_last_of('\n') + 1;  // 0 if there is no line end
    const auto lines = std::count(before.begin(), before.end(), '\n');
    const auto characters =
        std::count_if(before.begin() + static_cast<std::ptrdiff_t>(lineStart), before.end(), beginsCharacter);
    return {.line = static_cast<std::size_t>(lines) + 1, .column = static_cast<std::size_t>(characters) + 1};
}

}  // namespace

std::optional<TextPlace> breakIn(std::string_view document) {
    // A copy, because the scanner needs padding after the data.
    const VanticRestKit::Data data{std::string(document)};
    const char* const end = data.data() + data.size();
    json::Skipper<json::Unobserved> walk(json::documentStart(data.data(), end), end, 0, {});
    const char* const next = walk.run();
    const char* const at = next == nullptr ? walk.at() : json::skipSpace(next);
    if (next != nullptr && at == end) return std::nullopt;
    return placeOf(data.view(), static_cast<std::size_t>(std::min(at, end) - data.data()));
}

std::string textOf(TextPlace place) {
    return "line " + std::to_string(place.line) + ", column " + std::to_string(place.column);
}

}  // namespace vantic
