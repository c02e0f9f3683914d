#pragma once

#include <VanticRestKit/platform/url/URL.h>

#include <string>

namespace demo {

/// Steers the sample service through its control routes, so that the demo can show how the library takes a
/// service that fails. A host has nothing like it.
class ServiceControl {
public:
    explicit ServiceControl(VanticRestKit::URL baseURL);

    /// Asks for a fault of the next answer of a path. `details` is what stands in the request's JSON behind
    /// the path, such as `"fault":"status","status":500`. False where the service did not agree.
    bool addFault(const std::string& path, const std::string& details) const;

    /// Asks the service to end.
    bool stop() const;

private:
    bool post(const std::string& path, const std::string& body) const;

    VanticRestKit::URL baseURL_;
};

}  // namespace demo
