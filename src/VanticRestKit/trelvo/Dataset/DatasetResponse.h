#pragma once

/// \file
/// `DatasetResponse`: the answer to a request about datasets.

#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/trelvo/Common/Auth.h>
#include <VanticRestKit/trelvo/Common/ResponseMeta.h>
#include <VanticRestKit/trelvo/Dataset/DatasetContainer.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <vector>

namespace VanticRestKit {

/// The answer to a request about datasets. Any JSON object decodes into one.
struct DatasetResponse {
    /// What the service says about its answer. No operation reads it. Key `meta`; empty if absent or if it does not
    /// decode.
    std::optional<ResponseMeta> meta{};
    /// One that does not decode empties the list.
    std::vector<DatasetContainer> data{};
    /// The tokens that count from now on, where the service has renewed them.
    std::optional<Auth> auth{};

    friend bool operator==(const DatasetResponse&, const DatasetResponse&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<DatasetResponse>();

}  // namespace VanticRestKit
