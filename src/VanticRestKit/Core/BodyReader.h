#pragma once

/// \file
/// `RawText`, a body as a string, and the decoding of bodies.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/json/Diagnosis.h>
#include <VanticRestKit/platform/json/JSONDecoder.h>
#include <VanticRestKit/platform/json/PlanOf.h>
#include <VanticRestKit/platform/result/Result.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace VanticRestKit {

/// An unmodified body, the value type of `Resource<RawText>`. A `Resource<std::string>` decodes a JSON string instead.
struct RawText {
    /// The text.
    std::string text{};

    friend bool operator==(const RawText&, const RawText&) = default;
};

namespace detail {

class LoadObservation;

/// Reports to the observer that `body` was decoded, or the decoding error. `explain` lists tolerated faults.
VRK_EXPORT void noteDecoding(const LoadObservation& observation, const Data& body, const Error* error,
                             std::string_view typeName, Diagnosis (*explain)(const Data&));

/// Converts a body to a value: `Data` and `RawText` take it unmodified, all other types are decoded.
struct BodyReader {
    JSONDecoder decoder{};
    /// The observer; may be null.
    const LoadObservation* observation = nullptr;

    template <class T>
    Result<T, Error> decode(const Data& body) const {
        if constexpr (std::is_same_v<T, Data> || std::is_same_v<T, std::optional<Data>>) {
            return T(body);
        } else if constexpr (std::is_same_v<T, RawText> || std::is_same_v<T, std::optional<RawText>>) {
            return T(RawText{std::string(body.view())});
        } else {
            Result<T, Error> decoded = decoder.template decode<T>(body);
            if (observation != nullptr) {
                noteDecoding(*observation, body, decoded ? nullptr : &decoded.error(),
                             mapping::planName(planOf<T>()),
                             [](const Data& document) { return diagnose<T>(document); });
            }
            return decoded;
        }
    }
};

}  // namespace detail
}  // namespace VanticRestKit
