#pragma once

/// \file
/// `FailableCodable`: a value, or nothing where it did not decode.

#include <VanticRestKit/platform/json/FieldAccess.h>
#include <VanticRestKit/platform/json/PlanOf.h>
#include <VanticRestKit/platform/json/TypePlan.h>

#include <optional>

namespace VanticRestKit {

/// Decodes any JSON value: into a T where that succeeds, into nothing where it does not. What was wrong is
/// lost. `std::vector<FailableCodable<T>>` reads a list of which some elements may be malformed or unknown;
/// each element keeps its place. For decoding only.
///
/// A type may hold itself through a list of `FailableCodable`. A document is read once, however deep its attempts lie.
template <class T>
struct FailableCodable {
    /// Empty where the value did not decode.
    std::optional<T> wrappedValue{};

    friend bool operator==(const FailableCodable&, const FailableCodable&) = default;
};

namespace mapping::detail {

template <class T>
struct BuiltIn<FailableCodable<T>> {
    static const TypePlan& plan() {
        static const TypePlan& plan = *new TypePlan{.kind = ValueKind::attempted,
                                                    .name = planOf<T>().name,
                                                    .wrapped = &planOf<T>(),
                                                    .wrap = &wrap,
                                                    .forget = &forget,
                                                    .peek = &peek};
        return plan;
    }

private:
    static void* wrap(void* value) {
        // Clang takes a type that holds attempts to decode itself for one without a default value, because it was
        // asked while the type was incomplete. So the value is made here, without a question.
        return &static_cast<FailableCodable<T>*>(value)->wrappedValue.emplace(fresh<T>());
    }

    static void forget(void* value) { static_cast<FailableCodable<T>*>(value)->wrappedValue.reset(); }

    static const void* peek(const void* value) {
        const auto& failable = *static_cast<const FailableCodable<T>*>(value);
        return failable.wrappedValue ? &*failable.wrappedValue : nullptr;
    }
};

}  // namespace mapping::detail
}  // namespace VanticRestKit
