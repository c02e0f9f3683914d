#pragma once

/// \file
/// `Outcome`: how a transfer ended.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/http/URLResponse.h>

#include <memory>
#include <optional>

namespace VanticRestKit::detail {

/// What a completion is handed.
struct Outcome {
    std::optional<Data> data{};
    std::shared_ptr<const URLResponse> response{};
    std::optional<Error> error{};
};

}  // namespace VanticRestKit::detail
