#pragma once

/// \file
/// What the templates of `PlanOf.h` and `OneOf.h` make plans from: functions for values of a type, without the type.
///
/// `void*` arguments point to a value of the plan's type, or to a list, as the name tells.

#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace VanticRestKit {

class MemoryBudget;

namespace mapping {

struct FieldOps;

/// How a list grows.
struct ListPlan {
    const TypePlan& (*element)();
    /// Whether an element that fails is dropped instead of failing the list.
    bool tolerant;
    /// Appends a fresh element and returns where it lies, or null if the budget does not allow the list to grow.
    /// The byte counts are those of the array so far and of what may be left of it, from which the capacity to
    /// reserve is estimated; 0 if nothing is known.
    void* (*append)(void* list, std::size_t bytesRead, std::size_t bytesLeft, MemoryBudget& memory);
    void (*removeLast)(void* list);
    std::size_t (*count)(const void* list);
    const void* (*at)(const void* list, std::size_t index);
};

/// One of the types that a choice tries.
struct Candidate {
    const TypePlan& (*type)();
    /// What a value of it takes of the budget.
    std::size_t size;
    void* (*make)();
    void (*drop)(void* made);
    /// Moves the finished value into the field, or to the end of the list, and frees it.
    void (*keep)(void* made, void* fieldOrList);
};

/// The types that a choice tries, in order.
struct ChoicePlan {
    std::span<const Candidate> candidates;
    /// Which candidate a kept value is of, and where it lies: for printing values.
    std::size_t (*which)(const void* value);
    const void* (*held)(const void* value);
};

/// The plans of the types that need no functions: `std::string`, `bool`, `std::int64_t`, `std::uint64_t`, `double`,
/// `Dictionary`; and a string that may also be an unsigned whole number.
VRK_EXPORT const TypePlan& textPlan();
VRK_EXPORT const TypePlan& booleanPlan();
VRK_EXPORT const TypePlan& integerPlan();
VRK_EXPORT const TypePlan& unsignedIntegerPlan();
VRK_EXPORT const TypePlan& numberPlan();
VRK_EXPORT const TypePlan& dictionaryPlan();
VRK_EXPORT const TypePlan& decimalOrTextPlan();

// Each of the following makes a new plan, for the static reference of a template; the plan is never destroyed. The
// names and the structures that are passed must outlive it, except the name of a list's element. Plans are made here and not in headers: GCC initialises
// the constant members of a static object at compile time, Clang all of them at run time; linked together, GCC's code
// would run on Clang's storage, without those members.

/// A whole number of a narrower type: `store` is false if the number does not fit.
VRK_EXPORT const TypePlan& makeNarrowIntegerPlan(std::string_view name,
                                                 bool (*store)(std::int64_t number, void* value),
                                                 std::int64_t (*load)(const void* value));

/// A string that `convert` turns into the value, false if it cannot. `caseName` is the name of the case that an
/// enumeration holds, and null for a date.
VRK_EXPORT const TypePlan& makeConvertedTextPlan(std::string_view name,
                                                 bool (*convert)(std::string_view text, void* value),
                                                 std::string_view (*caseName)(const void* value));

/// A number that `convert` turns into the value.
VRK_EXPORT const TypePlan& makeConvertedNumberPlan(std::string_view name,
                                                   bool (*convert)(double number, void* value),
                                                   std::string_view (*caseName)(const void* value));

/// Any JSON value at all: `store` is given its bytes, whose structure is sound.
VRK_EXPORT const TypePlan& makeVerbatimPlan(std::string_view name,
                                            void (*store)(std::string_view json, void* value));

/// Any JSON value at all, of which nothing is kept.
VRK_EXPORT const TypePlan& makeAnythingPlan(std::string_view name);

/// A list. Its name is that of the element in brackets; the element is named, and not planned, since a type may hold
/// a list of itself.
VRK_EXPORT const TypePlan& makeListPlan(std::string_view elementName, const ListPlan& list);

/// A value of one of several types, which are tried in turn.
VRK_EXPORT const TypePlan& makeChoicePlan(std::string_view name, const ChoicePlan& choice);

/// A `std::optional` that null leaves empty. `ops` are those of the optional.
VRK_EXPORT const TypePlan& makeNullablePlan(const TypePlan& wrapped, const FieldOps& ops);

/// Any JSON value at all, and nothing if it does not decode as `wrapped`: `wrap` puts a fresh value in and returns
/// where it lies, `forget` takes it out, `peek` returns where it lies, or null.
VRK_EXPORT const TypePlan& makeAttemptedPlan(const TypePlan& wrapped, void* (*wrap)(void* value),
                                             void (*forget)(void* value),
                                             const void* (*peek)(const void* value));

/// The name of the plan's type: "Video", "[Link]", "String".
VRK_EXPORT std::string_view planName(const TypePlan& plan) noexcept;

}  // namespace mapping
}  // namespace VanticRestKit
