#pragma once

#include "operations/Host.h"

namespace vantic {

/// Sends requests over a separate session, which trusts the certificates of the options. With `--verbose`, each failed
/// request is reported on standard error.
Serve serveOver(const CommonOptions& common);

}  // namespace vantic
