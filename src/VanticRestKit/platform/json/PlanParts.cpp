#include <VanticRestKit/platform/json/PlanParts.h>

#include <VanticRestKit/platform/json/detail/TypePlan.h>

#include <string>
#include <utility>

namespace VanticRestKit::mapping {

const TypePlan& textPlan() {
    static constexpr TypePlan plan{.kind = ValueKind::text, .name = "String"};
    return plan;
}

const TypePlan& booleanPlan() {
    static constexpr TypePlan plan{.kind = ValueKind::boolean, .name = "Bool"};
    return plan;
}

const TypePlan& integerPlan() {
    static constexpr TypePlan plan{.kind = ValueKind::integer, .name = "Int"};
    return plan;
}

const TypePlan& unsignedIntegerPlan() {
    static constexpr TypePlan plan{.kind = ValueKind::unsignedInteger, .name = "UInt"};
    return plan;
}

const TypePlan& numberPlan() {
    static constexpr TypePlan plan{.kind = ValueKind::number, .name = "Double"};
    return plan;
}

const TypePlan& dictionaryPlan() {
    static constexpr TypePlan plan{.kind = ValueKind::dictionary, .name = "[String: Any]"};
    return plan;
}

const TypePlan& decimalOrTextPlan() {
    static constexpr TypePlan plan{.kind = ValueKind::decimalOrText, .name = "String"};
    return plan;
}

const TypePlan& makeNarrowIntegerPlan(std::string_view name, bool (*store)(std::int64_t number, void* value),
                                      std::int64_t (*load)(const void* value)) {
    return *new TypePlan{
        .kind = ValueKind::narrowInteger, .name = name, .fromInteger = store, .toInteger = load};
}

const TypePlan& makeConvertedTextPlan(std::string_view name,
                                      bool (*convert)(std::string_view text, void* value),
                                      std::string_view (*caseName)(const void* value)) {
    return *new TypePlan{
        .kind = ValueKind::convertedText, .name = name, .fromText = convert, .caseName = caseName};
}

const TypePlan& makeConvertedNumberPlan(std::string_view name, bool (*convert)(double number, void* value),
                                        std::string_view (*caseName)(const void* value)) {
    return *new TypePlan{
        .kind = ValueKind::convertedNumber, .name = name, .fromNumber = convert, .caseName = caseName};
}

const TypePlan& makeVerbatimPlan(std::string_view name, void (*store)(std::string_view json, void* value)) {
    return *new TypePlan{.kind = ValueKind::verbatim, .name = name, .fromJSON = store};
}

const TypePlan& makeAnythingPlan(std::string_view name) {
    return *new TypePlan{.kind = ValueKind::anything, .name = name};
}

const TypePlan& makeListPlan(std::string_view elementName, const ListPlan& list) {
    // The plan holds only a view of its name, so the name is stored next to it.
    struct NamedPlan {
        NamedPlan(std::string text, const ListPlan& elements)
            : name(std::move(text)), plan{.kind = ValueKind::list, .name = name, .list = &elements} {}

        const std::string name;
        const TypePlan plan;
    };
    return (new NamedPlan("[" + std::string(elementName) + "]", list))->plan;
}

const TypePlan& makeChoicePlan(std::string_view name, const ChoicePlan& choice) {
    return *new TypePlan{.kind = ValueKind::choice, .name = name, .choice = &choice};
}

const TypePlan& makeNullablePlan(const TypePlan& wrapped, const FieldOps& ops) {
    return *new TypePlan{.kind = ValueKind::nullable,
                         .name = wrapped.name,
                         .wrapped = &wrapped,
                         .wrap = ops.open,
                         .peek = ops.peek};
}

const TypePlan& makeAttemptedPlan(const TypePlan& wrapped, void* (*wrap)(void* value),
                                  void (*forget)(void* value), const void* (*peek)(const void* value)) {
    return *new TypePlan{.kind = ValueKind::attempted,
                         .name = wrapped.name,
                         .wrapped = &wrapped,
                         .wrap = wrap,
                         .forget = forget,
                         .peek = peek};
}

std::string_view planName(const TypePlan& plan) noexcept { return plan.name; }

}  // namespace VanticRestKit::mapping
