#include "Printing.h"

#include <cstdio>
#include <ctime>

namespace demo {

using namespace VanticRestKit;

namespace {

constexpr std::size_t labelWidth = 16;
constexpr std::size_t lineWidth = 108;

std::size_t charactersIn(std::string_view text) {
    std::size_t characters = 0;
    for (const char byte : text) characters += (byte & 0xC0) != 0x80;
    return characters;
}

}  // namespace

void printHeading(const std::string& text) { std::printf("\n%s\n", text.c_str()); }

void printField(const char* label, const std::string& text) {
    if (!text.empty()) std::printf("  %s %s\n", padded(label, labelWidth).c_str(), text.c_str());
}

void printList(const std::string& label, const std::vector<std::string>& texts) {
    std::string line = "  " + padded(label, labelWidth);
    bool first = true;
    for (const auto& text : texts) {
        if (!first && charactersIn(line) + 3 + charactersIn(text) > lineWidth) {
            std::printf("%s\n", line.c_str());
            line = std::string(labelWidth + 2, ' ');
            first = true;
        }
        line += (first ? " " : " | ") + text;
        first = false;
    }
    std::printf("%s\n", line.c_str());
}

std::string padded(std::string_view text, std::size_t width) {
    const auto characters = charactersIn(text);
    std::string result(text);
    result.append(characters < width ? width - characters : 0, ' ');
    return result;
}

std::string textOf(const std::optional<Date>& date) {
    if (!date) return {};
    const auto seconds = static_cast<std::time_t>(date->time_since_epoch().count());
    std::tm local{};
    char text[32];
    if (localtime_r(&seconds, &local) == nullptr) return {};
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M", &local);
    return text;
}

std::string utcText(double secondsSince1970, const char* pattern) {
    const auto whole = static_cast<std::time_t>(secondsSince1970);
    std::tm utc{};
    char text[32];
    if (gmtime_r(&whole, &utc) == nullptr) return {};
    std::strftime(text, sizeof text, pattern, &utc);
    return text;
}

}  // namespace demo
