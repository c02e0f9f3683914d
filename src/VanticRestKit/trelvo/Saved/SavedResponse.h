#pragma once

/// \file
/// `SavedResponse`: the answer to a request about saved things.

#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/trelvo/Common/Auth.h>
#include <VanticRestKit/trelvo/Common/ResponseMeta.h>
#include <VanticRestKit/trelvo/Saved/SavedData.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <vector>

namespace VanticRestKit {

/// The answer to a request about saved things. Any JSON object decodes into one.
struct SavedResponse {
    /// What the service says about its answer. No operation reads it. Key `meta`; empty if absent or if it does not
    /// decode.
    std::optional<ResponseMeta> meta{};
    /// Empty also where one record does not decode; a list without records is something else.
    std::optional<std::vector<SavedData>> data{};
    /// The tokens that count from now on, where the service has renewed them.
    std::optional<Auth> auth{};

    friend bool operator==(const SavedResponse&, const SavedResponse&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<SavedResponse>();

}  // namespace VanticRestKit
