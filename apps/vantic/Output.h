#pragma once

#include <string>
#include <string_view>

namespace vantic {

/// Writes to standard output, through its buffer.
void print(std::string_view text);

/// Writes one line to standard error at once. Line ends inside `text` become blanks.
void report(std::string_view text);

/// Hands everything printed so far to the system. Throws `Failed` where that does not work.
void flush();

/// A text of any bytes as a JSON string, with its quotes; U+FFFD stands for what is no UTF-8.
std::string jsonText(std::string_view bytes);

}  // namespace vantic
