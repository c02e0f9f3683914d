#pragma once

/// \file
/// `JSONText`: a value for a document, written by a test.

#include <VanticRestKit/Testing/Answer.h>

#include <concepts>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace VanticRestKit::Testing {

/// A JSON value, created from a string, a number, a boolean, `nullptr` or a builder.
class JSONText {
public:
    /// A string.
    JSONText(std::string_view value);
    /// A string.
    JSONText(const std::string& value) : JSONText(std::string_view(value)) {}
    /// A string.
    JSONText(const char* value) : JSONText(std::string_view(value)) {}
    /// A boolean.
    template <std::same_as<bool> B>
    JSONText(B value) : text_(value ? "true" : "false") {}
    /// A whole number.
    template <std::integral I>
    requires(!std::same_as<I, bool> && !std::same_as<I, char>) JSONText(I value)
        : text_(std::to_string(value)) {}
    /// A number.
    JSONText(double value);
    /// Null.
    JSONText(std::nullptr_t) : text_("null") {}
    /// The document of a builder.
    template <HasDocument T>
    JSONText(const T& value) : text_(value.document()) {}

    /// A string that is already JSON, such as `JSONText::raw("[1,2]")`.
    static JSONText raw(std::string json);

    /// The JSON text.
    const std::string& text() const noexcept { return text_; }

private:
    std::string text_;
};

}  // namespace VanticRestKit::Testing
