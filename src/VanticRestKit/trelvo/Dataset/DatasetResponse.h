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

/// The response to a request for datasets. Any JSON object can be decoded.
struct DatasetResponse {
    /// Information about the response; no operation uses it. Key `meta`; empty if absent or if it cannot be decoded.
    std::optional<ResponseMeta> meta{};
    /// An empty list if absent or if any element cannot be decoded.
    std::vector<DatasetContainer> data{};
    /// The new tokens, if the service has renewed them.
    std::optional<Auth> auth{};

    friend bool operator==(const DatasetResponse&, const DatasetResponse&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<DatasetResponse>();

}  // namespace VanticRestKit
