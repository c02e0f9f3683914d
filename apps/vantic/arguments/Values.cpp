#include "arguments/Values.h"

#include <charconv>
#include <cmath>

namespace vantic {

namespace {

template <class Number>
bool reads(const std::string& text, Number& number) {
    const char* const end = text.data() + text.size();
    const auto [stop, fault] = std::from_chars(text.data(), end, number);
    return fault == std::errc() && stop == end;
}

}  // namespace

std::int64_t readInteger(std::string_view name, const std::string& text) {
    std::int64_t number = 0;
    if (!reads(text, number)) throw UsageError{"--" + std::string(name) + " takes a whole number, not " + text};
    return number;
}

double readNumber(std::string_view name, const std::string& text) {
    double number = 0;
    if (!reads(text, number) || !std::isfinite(number)) {
        throw UsageError{"--" + std::string(name) + " takes a number, not " + text};
    }
    return number;
}

bool readTruth(std::string_view name, const std::string& text) {
    if (text != "true" && text != "false") {
        throw UsageError{"--" + std::string(name) + " takes true or false, not " + text};
    }
    return text == "true";
}

VanticRestKit::URLQueryItem readQueryItem(std::string_view, const std::string& text) {
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos) return {.name = text};
    return {.name = text.substr(0, equals), .value = text.substr(equals + 1)};
}

}  // namespace vantic
