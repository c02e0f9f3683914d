#pragma once

/// \file
/// `Outcome`: how a transfer ended.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/http/RequestMetrics.h>
#include <VanticRestKit/platform/http/URLResponse.h>

#include <list>
#include <memory>
#include <optional>

namespace VanticRestKit::detail {

/// The arguments of a completion.
struct Outcome {
    std::optional<Data> data{};
    std::shared_ptr<const URLResponse> response{};
    std::optional<Error> error{};
    /// The records of the transfer's requests, if they are collected.
    std::list<RequestMetrics> metrics{};
};

}  // namespace VanticRestKit::detail
