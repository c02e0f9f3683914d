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

// Parsers for the values of options. Each takes the name of the option for its error message, and throws `UsageError`
// for an invalid value.
namespace vantic {

std::uint64_t readUnsigned(std::string_view name, const std::string& text);
std::int64_t readInteger(std::string_view name, const std::string& text);
/// Any finite decimal number.
double readNumber(std::string_view name, const std::string& text);
/// "true" or "false".
bool readBoolean(std::string_view name, const std::string& text);
/// "name=value", split at the first "=". Without "=", the item has no value.
VanticRestKit::URLQueryItem readQueryItem(std::string_view name, const std::string& text);

/// "source://type/id"; the id may contain slashes.
VanticRestKit::RecsModuleContext readContent(std::string_view name, const std::string& text);

/// A JSON object as free-form data, with its strings, numbers and booleans.
VanticRestKit::Dictionary readDataset(std::string_view name, const std::string& text);

/// Throws `UsageError` for a value that is not allowed.
[[noreturn]] void refuse(std::string_view name, const std::string& text,
                         const std::vector<std::string_view>& allowed);

/// The raw strings of an enumeration, in declaration order.
template <class E>
std::vector<std::string_view> rawTexts() {
    std::vector<std::string_view> texts;
    for (const auto& row : VanticRestKit::RawTexts<E>::cases) texts.push_back(row.raw);
    return texts;
}

/// "true" and "false".
std::vector<std::string_view> booleanNames();

/// The case of an enumeration with this raw string.
template <class E>
E readCase(std::string_view name, const std::string& text) {
    const std::optional<E> found = VanticRestKit::fromRawValue<E>(text);
    if (!found) refuse(name, text, rawTexts<E>());
    return *found;
}

}  // namespace vantic
