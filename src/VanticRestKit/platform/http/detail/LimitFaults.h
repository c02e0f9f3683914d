#pragma once

/// \file
/// The faults of answers that exceed a limit of the session.

#include <VanticRestKit/platform/http/detail/URLErrors.h>
#include <VanticRestKit/platform/http/URLSessionLimits.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace VanticRestKit::detail {

/// The limits of a session that sets none.
inline constexpr URLSessionLimits defaultLimits{};

/// A size for an error message: "64 KB", or "100 bytes" if it is no whole number of KB.
std::string sizeText(std::uint64_t bytes);

/// The fault of an answer that exceeds a limit. `what` is a sentence without its full stop; `name` is the field of
/// `URLSessionLimits`.
TransportFault limitFault(std::string what, std::string_view name);

/// The faults that libcurl finds as well, which has limits of its own: the smaller one is named.
TransportFault longHeaderLineFault(const URLSessionLimits& limits);
TransportFault largeHeadFault(const URLSessionLimits& limits);

}  // namespace VanticRestKit::detail
