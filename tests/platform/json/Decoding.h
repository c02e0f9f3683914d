#pragma once

/// \file
/// Decodes any type with both engines and reports how they differ.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/json/Fresh.h>
#include <VanticRestKit/platform/json/JSONDecoder.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/platform/json/PlanOf.h>

#include <cstdint>
#include <memory>
#include <string>

namespace VanticRestKit::test {

/// A type-erased decodable type, for code that is not a template.
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

/// The result of decoding.
struct Outcome {
    /// The value as compact JSON, "" if there is none.
    std::string value;
    /// The failure: `typeMismatch ["a",0]`, or the description of an entity's own error. "" if there is a value.
    std::string failure;
    /// The path of the fault or of the entity with the wrong kind: `["a",0]`.
    std::string path;
    /// How the engines differ, "" if they agree.
    std::string difference;
    /// The part of the memory budget that the value uses.
    std::uint64_t memory = 0;
};

/// Decodes a document with both engines.
Outcome decodeByBoth(const DecodableType& type, const Data& document,
                     std::uint64_t memoryBudget = JSONDecoder::defaultMemoryBudget);

}  // namespace VanticRestKit::test
