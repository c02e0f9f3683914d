#pragma once

/// \file
/// The queue of services and sessions that name none of their own.

#include <VanticRestKit/platform/dispatch/DispatchQueue.h>

namespace VanticRestKit::detail {

/// Delivers loads that were ended early, if the service behind them does not say where it delivers. Made on first use;
/// it lives as long as the process.
DispatchQueue sharedDeliveryQueue();

}  // namespace VanticRestKit::detail
