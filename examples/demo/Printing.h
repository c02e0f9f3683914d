#pragma once

#include <VanticRestKit/platform/date/Date.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace demo {

void printHeading(const std::string& text);

/// A label and a text beside it; nothing where the text is empty.
void printField(const char* label, const std::string& text);

/// A label and texts beside it, in as many lines as they need.
void printList(const std::string& label, const std::vector<std::string>& texts);

/// Filled up with blanks by characters, not bytes, so that columns stay in line.
std::string padded(std::string_view text, std::size_t width);

/// In the zone of this computer; no text for no date.
std::string textOf(const std::optional<VanticRestKit::Date>& date);

/// A UTC time, in a pattern of strftime.
std::string utcText(double secondsSince1970, const char* pattern);

}  // namespace demo
