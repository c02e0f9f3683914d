#pragma once

/// \file
/// `JSONText`: a value of a document, as a test writes it.

#include <VanticRestKit/Testing/Answer.h>

#include <concepts>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace VanticRestKit::Testing {

/// One JSON value: made from a string, a number, a truth value, `nullptr`, or a builder.
class JSONText {
public:
    JSONText(std::string_view value);
    JSONText(const std::string& value) : JSONText(std::string_view(value)) {}
    JSONText(const char* value) : JSONText(std::string_view(value)) {}
    template <std::same_as<bool> B>
    JSONText(B value) : text_(value ? "true" : "false") {}
    template <std::integral I>
    requires(!std::same_as<I, bool> && !std::same_as<I, char>) JSONText(I value)
        : text_(std::to_string(value)) {}
    JSONText(double value);
    JSONText(std::nullptr_t) : text_("null") {}
    template <HasDocument T>
    JSONText(const T& value) : text_(value.document()) {}

    /// A text that is JSON already, such as `JSONText::raw("[1,2]")`.
    static JSONText raw(std::string json);

    const std::string& text() const noexcept { return text_; }

private:
    std::string text_;
};

}  // namespace VanticRestKit::Testing
