#pragma once

/// \file
/// `HistoryResponse`: the answer to a request about a viewing history.

#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/trelvo/Common/Auth.h>
#include <VanticRestKit/trelvo/Common/ResponseMeta.h>
#include <VanticRestKit/trelvo/History/HistoryData.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <vector>

namespace VanticRestKit {

/// The response to a request for a viewing history. Any JSON object can be decoded.
struct HistoryResponse {
    /// Information about the response; no operation uses it. Key `meta`; empty if absent or if it cannot be decoded.
    std::optional<ResponseMeta> meta{};
    /// Empty if absent or if any record cannot be decoded, which is different from an empty list.
    std::optional<std::vector<HistoryData>> data{};
    /// The new tokens, if the service has renewed them.
    std::optional<Auth> auth{};

    friend bool operator==(const HistoryResponse&, const HistoryResponse&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<HistoryResponse>();

}  // namespace VanticRestKit
