#pragma once

#include "HostContext.h"
#include "ServiceControl.h"

namespace demo {

/// Shows what a host gets for an unknown video, a failing service, an answer that is no JSON and a service that
/// is gone, which it is afterwards. False where one of them was not as it has to be.
bool showFailures(const HostContext& context, const ServiceControl& service);

}  // namespace demo
