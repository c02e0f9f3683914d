#pragma once

/// \file
/// What the templates of `PlanOf.h` and `OneOf.h` build plans from: type-erased operations on values.
///
/// `void*` arguments point to a value of the plan's type, or to a list if they are named so.

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

/// Operations on a list.
struct ListPlan {
    const TypePlan& (*element)();
    /// Whether an element that fails is dropped instead of failing the list.
    bool tolerant;
    /// Appends a new element and returns its address, or null if the budget does not allow the list to grow. The
    /// capacity to reserve is estimated from `bytesRead`, the size of the array so far, and `bytesLeft`, the most that
    /// may be left of it; 0 if unknown.
    void* (*append)(void* list, std::size_t bytesRead, std::size_t bytesLeft, MemoryBudget& memory);
    void (*removeLast)(void* list);
    std::size_t (*count)(const void* list);
    const void* (*at)(const void* list, std::size_t index);
};

/// One of the types that a choice tries.
struct Candidate {
    const TypePlan& (*type)();
    /// How many bytes of the budget a value takes.
    std::size_t size;
    void* (*make)();
    void (*drop)(void* made);
    /// Moves the finished value into the field, or to the end of the list, and frees it.
    void (*keep)(void* made, void* fieldOrList);
};

/// The types that a choice tries, in order.
struct ChoicePlan {
    std::span<const Candidate> candidates;
    /// The index of the candidate that a kept value holds, and its address: for printing values.
    std::size_t (*which)(const void* value);
    const void* (*held)(const void* value);
};

/// The plans of the types that need no functions: `std::string`, `bool`, `std::int64_t`, `std::uint64_t`, `double`,
/// `Dictionary`; and a string that may also be an unsigned integer.
VRK_EXPORT const TypePlan& textPlan();
VRK_EXPORT const TypePlan& booleanPlan();
VRK_EXPORT const TypePlan& integerPlan();
VRK_EXPORT const TypePlan& unsignedIntegerPlan();
VRK_EXPORT const TypePlan& numberPlan();
VRK_EXPORT const TypePlan& dictionaryPlan();
VRK_EXPORT const TypePlan& decimalOrTextPlan();

// Each of the following makes a new plan, which a template keeps in a static reference and which is never destroyed.
// The names and structures that are passed must outlive it, except the element name of a list. Plans are made here and
// not in headers because GCC initialises the constant members of a static object at compile time, but Clang initialises
// all of them at run time: if both are linked together, GCC's code would use Clang's storage, in which those members
// are missing.

/// An integer of a narrower type: `store` returns false if the number does not fit.
VRK_EXPORT const TypePlan& makeNarrowIntegerPlan(std::string_view name,
                                                 bool (*store)(std::int64_t number, void* value),
                                                 std::int64_t (*load)(const void* value));

/// A string that `convert` turns into the value; it returns false if it cannot. `caseName` gives the name of the case
/// that an enumeration holds, and is null for a date.
VRK_EXPORT const TypePlan& makeConvertedTextPlan(std::string_view name,
                                                 bool (*convert)(std::string_view text, void* value),
                                                 std::string_view (*caseName)(const void* value));

/// A number that `convert` turns into the value.
VRK_EXPORT const TypePlan& makeConvertedNumberPlan(std::string_view name,
                                                   bool (*convert)(double number, void* value),
                                                   std::string_view (*caseName)(const void* value));

/// Any JSON value: `store` is given its bytes, whose structure is valid.
VRK_EXPORT const TypePlan& makeVerbatimPlan(std::string_view name,
                                            void (*store)(std::string_view json, void* value));

/// Any JSON value; nothing of it is stored.
VRK_EXPORT const TypePlan& makeAnythingPlan(std::string_view name);

/// A list. Its name is the element name in brackets. The element's name is passed instead of its plan because a type
/// may hold a list of itself.
VRK_EXPORT const TypePlan& makeListPlan(std::string_view elementName, const ListPlan& list);

/// A value of one of several types, tried in order.
VRK_EXPORT const TypePlan& makeChoicePlan(std::string_view name, const ChoicePlan& choice);

/// A `std::optional` that null leaves empty. `ops` are those of the optional.
VRK_EXPORT const TypePlan& makeNullablePlan(const TypePlan& wrapped, const FieldOps& ops);

/// Any JSON value; empty if it does not decode as `wrapped`. `wrap` puts a new value in and returns its address,
/// `forget` removes it, and `peek` returns its address, or null if there is none.
VRK_EXPORT const TypePlan& makeAttemptedPlan(const TypePlan& wrapped, void* (*wrap)(void* value),
                                             void (*forget)(void* value),
                                             const void* (*peek)(const void* value));

/// The name of the plan's type: "Video", "[Link]", "String".
VRK_EXPORT std::string_view planName(const TypePlan& plan) noexcept;

}  // namespace mapping
}  // namespace VanticRestKit
