#pragma once

#include <VanticRestKit/platform/error/AnyValue.h>
#include <VanticRestKit/platform/json/RawText.h>
#include <VanticRestKit/platform/url/URLQueryItem.h>
#include <VanticRestKit/recs/RecsModuleContext.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Failure.h"

// The readers of values that are no plain text. Each is given the name of the option, for saying what is
// wrong, and throws `UsageError` for a text that it cannot read.
namespace vantic {

std::uint64_t readUnsigned(std::string_view name, const std::string& text);
std::int64_t readInteger(std::string_view name, const std::string& text);
/// A number of seconds or the like: any finite decimal number.
double readNumber(std::string_view name, const std::string& text);
/// "true" or "false".
bool readTruth(std::string_view name, const std::string& text);
/// "name=value", split at the first "="; without one the item has no value.
VanticRestKit::URLQueryItem readQueryItem(std::string_view name, const std::string& text);

/// "source://type/id"; the id may hold slashes.
VanticRestKit::RecsModuleContext readContent(std::string_view name, const std::string& text);

/// A JSON object as free-form data: its texts, numbers and truth values.
VanticRestKit::Dictionary readDataset(std::string_view name, const std::string& text);

/// Throws `UsageError` for a text that is none of those allowed.
[[noreturn]] void refuse(std::string_view name, const std::string& text,
                         const std::vector<std::string_view>& allowed);

/// The raw texts of an enumeration, in case order.
template <class E>
std::vector<std::string_view> rawTexts() {
    std::vector<std::string_view> texts;
    for (const auto& row : VanticRestKit::RawTexts<E>::cases) texts.push_back(row.raw);
    return texts;
}

/// "true" and "false".
std::vector<std::string_view> truthTexts();

/// The case of an enumeration by its raw text.
template <class E>
E readCase(std::string_view name, const std::string& text) {
    const std::optional<E> found = VanticRestKit::fromRawValue<E>(text);
    if (!found) refuse(name, text, rawTexts<E>());
    return *found;
}

}  // namespace vantic
