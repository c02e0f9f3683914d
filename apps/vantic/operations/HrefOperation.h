#pragma once

#include <optional>

#include "arguments/Arguments.h"
#include "operations/Host.h"
#include "operations/Loadable.h"

namespace vantic {

/// Calls `Endpoint::Resource`. The type to decode is read when the answer is loaded, and not before.
std::optional<Loadable> callResource(const Arguments& given, const Host& host);

}  // namespace vantic
