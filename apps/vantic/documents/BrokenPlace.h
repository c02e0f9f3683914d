#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vantic {

/// A place in a document, both counted from 1.
struct TextPlace {
    std::size_t line = 1;
    /// In characters of UTF-8.
    std::size_t column = 1;
};

/// Where the structure of a JSON document breaks: the first token that cannot stand where it does, an unfinished string,
/// or the end if more must follow. Empty for a sound structure.
std::optional<TextPlace> breakIn(std::string_view document);

/// "line 3, column 14"
std::string textOf(TextPlace place);

}  // namespace vantic
