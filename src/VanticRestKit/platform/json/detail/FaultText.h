#pragma once

// The texts of faults: what a document contains, and what a table expects.

#include <VanticRestKit/platform/json/detail/TypePlan.h>

#include <string>
#include <string_view>

namespace VanticRestKit::json {

using namespace mapping;  // the plans

/// "string", "number", "boolean", "null", "object" or "array": the JSON type of the value at `at`.
std::string_view jsonTypeAt(const char* at) noexcept;

/// The JSON type that a kind of value is read from.
std::string_view jsonTypeOf(ValueKind kind) noexcept;

/// Whether a kind of value is read from an object.
bool isObject(ValueKind kind) noexcept;

/// The type to name in a type mismatch: "String" or "Double" for a converted value, since the conversion never ran.
std::string_view expectedType(const TypePlan& type) noexcept;

/// What a field holds after its default was restored: "empty", "false", "[]", the name of a case, or the value as
/// JSON text.
std::string currentValue(const FieldPlan& field, const void* place);

}  // namespace VanticRestKit::json
