#pragma once

// Words for what a document holds and for what a table wants.

#include <VanticRestKit/platform/json/detail/TypePlan.h>

#include <string>
#include <string_view>

namespace VanticRestKit::json {

using namespace mapping;  // the plans

/// "string", "number", "boolean", "null", "object" or "array": the JSON type of the value at `at`.
std::string_view foundAt(const char* at) noexcept;

/// The JSON type that a kind of value is read from.
std::string_view jsonTypeOf(ValueKind kind) noexcept;

/// Whether a kind of value is opened as an object.
bool isObject(ValueKind kind) noexcept;

/// The type that a value of another JSON type misses: a text first of all, where a text is then converted.
std::string_view expectedType(const TypePlan& type) noexcept;

/// What a field holds after its default was restored: "empty", "false", "[]", the name of a case, or the value as
/// JSON text.
std::string heldBy(const FieldPlan& field, const void* place);

}  // namespace VanticRestKit::json
