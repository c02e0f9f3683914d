#pragma once

/// \file
/// `HostInformation`: describes the application and the device to services.

#include <VanticRestKit/Visibility.h>

#include <memory>
#include <optional>
#include <string>

namespace VanticRestKit {

/// The description of the application and the device that requests send to services. The defaults suit a Linux machine;
/// a host may derive its own class and supply an object of it.
class VRK_EXPORT HostInformation {
public:
    virtual ~HostInformation();

    /// The version of the host application; empty by default.
    virtual std::optional<std::string> applicationVersion() const;
    /// The version of the operating system; by default the kernel release.
    virtual std::string systemVersion() const;
    /// The hardware identifier of the machine, such as "x86_64"; not a display name.
    virtual std::string machine() const;

    /// The object supplied last, or the defaults. Any thread.
    static std::shared_ptr<const HostInformation> current();
    /// Sets the object that is used from now on; null restores the defaults. Any thread; the members of `host` are
    /// called on the threads that build requests.
    static void supply(std::shared_ptr<const HostInformation> host);
};

}  // namespace VanticRestKit
