#pragma once

#include "operations/Host.h"

namespace vantic {

/// Runs requests over a session of its own, which trusts the certificates that are asked for. With
/// `--verbose` each failed request is reported on standard error.
Serve serveOver(const CommonOptions& common);

}  // namespace vantic
