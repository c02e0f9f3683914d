#pragma once

#include <string>
#include <string_view>

namespace vantic {

/// Writes to standard output, through its buffer.
void print(std::string_view text);

/// Writes one line to standard error, unbuffered. Line ends in `text` are replaced by spaces.
void report(std::string_view text);

/// Writes the buffered output. Throws `Failed` if that fails.
void flush();

/// Any bytes as a JSON string, with quotes. Invalid UTF-8 is replaced by U+FFFD.
std::string jsonText(std::string_view bytes);

}  // namespace vantic
