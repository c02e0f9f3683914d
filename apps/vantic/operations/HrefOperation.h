#pragma once

#include <optional>

#include "arguments/Arguments.h"
#include "operations/Host.h"
#include "operations/Loadable.h"

namespace vantic {

/// Calls `Endpoint::Resource`. The option with the type is only read when the response is loaded.
std::optional<Loadable> callResource(const Arguments& given, const Host& host);

}  // namespace vantic
