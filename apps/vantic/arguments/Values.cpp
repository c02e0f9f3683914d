#include "arguments/Values.h"

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/json/JSONDecoder.h>

#include <charconv>
#include <cmath>

#include "arguments/Suggestions.h"

namespace vantic {

namespace {

template <class Number>
bool reads(const std::string& text, Number& number) {
    const char* const end = text.data() + text.size();
    const auto [stop, fault] = std::from_chars(text.data(), end, number);
    return fault == std::errc() && stop == end;
}

template <class Number>
Number whole(std::string_view name, const std::string& text) {
    Number number = 0;
    if (!reads(text, number))
        throw UsageError{"--" + std::string(name) + " takes a whole number, not " + text};
    return number;
}

}  // namespace

std::uint64_t readUnsigned(std::string_view name, const std::string& text) {
    return whole<std::uint64_t>(name, text);
}

std::int64_t readInteger(std::string_view name, const std::string& text) {
    return whole<std::int64_t>(name, text);
}

double readNumber(std::string_view name, const std::string& text) {
    double number = 0;
    if (!reads(text, number) || !std::isfinite(number)) {
        throw UsageError{"--" + std::string(name) + " takes a number, not " + text};
    }
    return number;
}

bool readBoolean(std::string_view name, const std::string& text) {
    if (text != "true" && text != "false") {
        throw UsageError{"--" + std::string(name) + " takes true or false, not " + text};
    }
    return text == "true";
}

std::vector<std::string_view> booleanNames() { return {"true", "false"}; }

void refuse(std::string_view name, const std::string& text, const std::vector<std::string_view>& allowed) {
    throw UsageError{"--" + std::string(name) + " takes " + alternatives(allowed) + ", not " + text +
                     suggestion(text, allowed)};
}

VanticRestKit::URLQueryItem readQueryItem(std::string_view, const std::string& text) {
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos) return {.name = text};
    return {.name = text.substr(0, equals), .value = text.substr(equals + 1)};
}

VanticRestKit::Dictionary readDataset(std::string_view name, const std::string& text) {
    using VanticRestKit::Dictionary;
    auto dataset = VanticRestKit::JSONDecoder().decode<Dictionary>(VanticRestKit::Data(text));
    if (!dataset) throw UsageError{"--" + std::string(name) + " takes a JSON object, not " + text};
    return std::move(dataset).value();
}

VanticRestKit::RecsModuleContext readContent(std::string_view name, const std::string& text) {
    const std::size_t colon = text.find("://");
    const std::size_t type = colon + 3;
    const std::size_t slash = colon == std::string::npos ? colon : text.find('/', type);
    if (slash == std::string::npos) {
        throw UsageError{"--" + std::string(name) + " takes source://type/id, not " + text};
    }
    return {.source = readCase<VanticRestKit::RecsContentSource>(name, text.substr(0, colon)),
            .contentType = readCase<VanticRestKit::RecsContentType>(name, text.substr(type, slash - type)),
            .contentId = text.substr(slash + 1)};
}

}  // namespace vantic
