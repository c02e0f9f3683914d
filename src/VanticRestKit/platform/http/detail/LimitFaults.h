#pragma once

/// \file
/// The faults of responses that exceed a limit of the session.

#include <VanticRestKit/platform/http/detail/URLErrors.h>
#include <VanticRestKit/platform/http/URLSessionLimits.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace VanticRestKit::detail {

/// The limits of a session that sets none.
inline constexpr URLSessionLimits defaultLimits{};

/// A size for an error message: "64 KB", or "100 bytes" if it is not a multiple of a KB.
std::string sizeText(std::uint64_t bytes);

/// The fault of a response that exceeds a limit. `what` is a sentence without its full stop; `name` is the field of
/// `URLSessionLimits`.
TransportFault limitFault(std::string what, std::string_view name);

/// The faults for limits that libcurl has too. The message names the smaller limit.
TransportFault longHeaderLineFault(const URLSessionLimits& limits);
TransportFault largeHeadFault(const URLSessionLimits& limits);

}  // namespace VanticRestKit::detail
