#pragma once

/// \file
/// How a request is put to libcurl.

#include <VanticRestKit/platform/http/curl/detail/Exchange.h>

#include <optional>
#include <string>

namespace VanticRestKit::detail {

/// What all requests of a session have in common.
struct EasySettings {
    std::optional<std::string> caBundlePath{};
};

/// Prepares the fresh or reset handle of `attempt` for its request. `onNewConnection`: not on one that is
/// open. Returns false where libcurl cannot be made to send it.
bool prepareEasy(Attempt& attempt, const EasySettings& settings, bool onNewConnection);

/// The header lines of `request`: its own, and those of the session of which it has none.
HeaderLines headerLinesOf(const URLRequest& request);

}  // namespace VanticRestKit::detail
