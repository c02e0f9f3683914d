#pragma once

/// \file
/// Decodes with both engines, whatever the type, and tells where they differ.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/json/Fresh.h>
#include <VanticRestKit/platform/json/JSONDecoder.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/platform/json/PlanOf.h>

#include <cstdint>
#include <memory>
#include <string>

namespace VanticRestKit::test {

/// A type that decodes, for code that does not want to be compiled for each.
struct DecodableType {
    const TypePlan& (*plan)();
    std::shared_ptr<void> (*make)();
};

template <class T>
inline constexpr DecodableType decodable = {
    .plan = []() -> const TypePlan& { return planOf<T>(); },
    .make =
        [] {
            return std::shared_ptr<void>(new T(mapping::detail::fresh<T>()),
                                         [](void* value) { delete static_cast<T*>(value); });
        },
};

/// What decoding came to.
struct Outcome {
    /// The value as compact text; "" where there is none.
    std::string value;
    /// Why there is none: `typeMismatch ["a",0]`, or the text of an entity's own error; "" where there is one.
    std::string failure;
    /// Of the entity of another kind, or of the fault: `["a",0]`.
    std::string path;
    /// How the engines differ; "" where they do not.
    std::string difference;
    /// What the value takes of the memory budget.
    std::uint64_t memory = 0;
};

/// Decodes a document with both engines.
Outcome decodeByBoth(const DecodableType& type, const Data& document,
                     std::uint64_t memoryBudget = JSONDecoder::defaultMemoryBudget);

}  // namespace VanticRestKit::test
