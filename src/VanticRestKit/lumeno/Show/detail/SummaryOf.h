#pragma once

#include <VanticRestKit/lumeno/Show/Show.h>
#include <VanticRestKit/lumeno/Show/ShowSummary.h>

#include <optional>

namespace VanticRestKit::detail {

/// The summary of `show`, made without a copy of it; empty where the show cannot give one.
std::optional<ShowSummary> summaryOf(const Show& show);

}  // namespace VanticRestKit::detail
