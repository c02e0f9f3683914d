#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vantic {

/// A position in a document; both numbers start at 1.
struct TextPlace {
    std::size_t line = 1;
    /// In code points, not bytes.
    std::size_t column = 1;
};

/// The position of the first structural error in a JSON document: an unexpected token, an unterminated string, or the
/// end if the document is incomplete. Empty for a well-formed document.
std::optional<TextPlace> breakIn(std::string_view document);

/// "line 3, column 14"
std::string textOf(TextPlace place);

}  // namespace vantic
