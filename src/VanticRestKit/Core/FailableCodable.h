#pragma once

/// \file
/// `FailableCodable`: a value, or empty if it could not be decoded.

#include <VanticRestKit/platform/json/PlanOf.h>

#include <optional>

namespace VanticRestKit {

/// Decodes any JSON value: to a T if that succeeds, otherwise to an empty value. The decoding error is discarded.
/// `std::vector<FailableCodable<T>>` reads a list in which some elements may be malformed or unknown; each element
/// keeps its position. For decoding only.
///
/// A type may contain itself through a list of `FailableCodable`. A document is read only once, however deeply such
/// lists are nested.
template <class T>
struct FailableCodable {
    /// Empty if the value could not be decoded.
    std::optional<T> wrappedValue{};

    friend bool operator==(const FailableCodable&, const FailableCodable&) = default;
};

namespace mapping::detail {

template <class T>
struct BuiltIn<FailableCodable<T>> {
    static const TypePlan& plan() {
        static const TypePlan& plan = makeAttemptedPlan(planOf<T>(), &wrap, &forget, &peek);
        return plan;
    }

private:
    static void* wrap(void* value) {
        // For a type that contains itself this way, Clang decides that it has no default constructor, because it was
        // asked while the type was incomplete. So the value is made here without that check.
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
