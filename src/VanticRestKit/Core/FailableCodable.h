#pragma once

/// \file
/// `FailableCodable`: a value, or nothing where it did not decode.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/json/JSONDecoder.h>
#include <VanticRestKit/platform/json/TypePlan.h>
#include <VanticRestKit/platform/result/Result.h>

#include <optional>
#include <string_view>
#include <utility>

namespace VanticRestKit {

/// Decodes any JSON value: into a T where that succeeds, into nothing where it does not. What was wrong is
/// lost. `std::vector<FailableCodable<T>>` reads a list of which some elements may be malformed or unknown;
/// each element keeps its place. For decoding only.
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
                                                    .attempt = &attempt,
                                                    .wrapped = &planOf<T>(),
                                                    .peek = &peek};
        return plan;
    }

private:
    static void attempt(std::string_view json, void* value) {
        Result<T, Error> decoded = JSONDecoder().decode<T>(Data(json));
        auto& failable = *static_cast<FailableCodable<T>*>(value);
        if (decoded) failable.wrappedValue = std::move(decoded).value();
    }

    static const void* peek(const void* value) {
        const auto& failable = *static_cast<const FailableCodable<T>*>(value);
        return failable.wrappedValue ? &*failable.wrappedValue : nullptr;
    }
};

}  // namespace mapping::detail
}  // namespace VanticRestKit
