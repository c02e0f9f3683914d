#pragma once

#include <VanticRestKit/platform/date/Date.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace demo {

void printHeading(const std::string& text);

/// Prints a label and a text; nothing if the text is empty.
void printField(const char* label, const std::string& text);

/// Prints a label and several texts, in as many lines as needed.
void printList(const std::string& label, const std::vector<std::string>& texts);

/// The text padded with spaces. The width is in characters, not bytes, so that columns are aligned.
std::string padded(std::string_view text, std::size_t width);

/// The date in the local time zone; an empty string if there is none.
std::string textOf(const std::optional<VanticRestKit::Date>& date);

/// A UTC time, formatted by strftime.
std::string utcText(double secondsSince1970, const char* pattern);

}  // namespace demo
