#pragma once

#include <VanticRestKit/platform/url/URL.h>

#include <string>

namespace demo {

/// Controls the sample service through its control routes, so that the demo can show how the library handles a service
/// that fails. Real hosts have nothing like it.
class ServiceControl {
public:
    explicit ServiceControl(VanticRestKit::URL baseURL);

    /// Adds a fault for the next response of a path. `details` are the further members of the JSON object, such as
    /// `"fault":"status","status":500`. Returns whether the service accepted it.
    bool addFault(const std::string& path, const std::string& details) const;

    /// Stops the service. Returns whether it accepted.
    bool stop() const;

private:
    bool post(const std::string& path, const std::string& body) const;

    VanticRestKit::URL baseURL_;
};

}  // namespace demo
