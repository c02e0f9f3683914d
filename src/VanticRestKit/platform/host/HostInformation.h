#pragma once

/// \file
/// `HostInformation`: what a request may say of the application and the device.

#include <VanticRestKit/Visibility.h>

#include <memory>
#include <optional>
#include <string>

namespace VanticRestKit {

/// What a request may say of the application and the device that it comes from. The defaults are those of a Linux
/// machine. A host that knows better derives a class of its own and supplies one.
class VRK_EXPORT HostInformation {
public:
    virtual ~HostInformation();

    /// The version of the host application; empty by default.
    virtual std::optional<std::string> applicationVersion() const;
    /// The version of the system; by default the release of the kernel.
    virtual std::string systemVersion() const;
    /// The hardware identifier of the machine, such as "x86_64"; not a name for people.
    virtual std::string machine() const;

    /// What was supplied last, or the defaults. Any thread.
    static std::shared_ptr<const HostInformation> current();
    /// Supplies what counts from now on; null brings the defaults back. Any thread; the members of `host` are
    /// called on the threads that build requests.
    static void supply(std::shared_ptr<const HostInformation> host);
};

}  // namespace VanticRestKit
