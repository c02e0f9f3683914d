#include <VanticRestKit/platform/json/detail/FaultText.h>

#include <VanticRestKit/platform/json/ValueText.h>

namespace VanticRestKit::json {

std::string_view jsonTypeAt(const char* at) noexcept {
    switch (*at) {
        case '{': return "object";
        case '[': return "array";
        case '"': return "string";
        case 't':
        case 'f': return "boolean";
        case 'n': return "null";
        default: return "number";
    }
}

std::string_view jsonTypeOf(ValueKind kind) noexcept {
    switch (kind) {
        case ValueKind::text:
        case ValueKind::decimalOrText:
        case ValueKind::convertedText: return "string";
        case ValueKind::boolean: return "boolean";
        case ValueKind::integer:
        case ValueKind::unsignedInteger:
        case ValueKind::narrowInteger:
        case ValueKind::number:
        case ValueKind::convertedNumber: return "number";
        case ValueKind::object:
        case ValueKind::choice:
        case ValueKind::dictionary: return "object";
        case ValueKind::list: return "array";
        case ValueKind::anything:
        case ValueKind::verbatim:
        case ValueKind::attempted:
        case ValueKind::nullable: break;
    }
    return "";
}

bool isObject(ValueKind kind) noexcept {
    return kind == ValueKind::object || kind == ValueKind::choice || kind == ValueKind::dictionary;
}

std::string_view expectedType(const TypePlan& type) noexcept {
    if (type.kind == ValueKind::convertedText) return "String";
    if (type.kind == ValueKind::convertedNumber) return "Double";
    return type.name;
}

std::string currentValue(const FieldPlan& field, const void* place) {
    const void* const value = field.ops->peek(place);
    if (value == nullptr) return "empty";
    if (field.type->caseName != nullptr) return std::string(field.type->caseName(value));
    return valueText(*field.type, value, ValueLayout::compact);
}

}  // namespace VanticRestKit::json
