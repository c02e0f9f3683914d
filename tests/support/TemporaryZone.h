#pragma once

/// \file
/// Changes the device's time zone during a test.

#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>

namespace VanticRestKit::test {

/// Sets TZ while this object exists: to a name such as "Australia/Sydney", which needs the system's zone files (Debian:
/// tzdata), or any other value. `std::nullopt` unsets TZ. No other thread may run while it is constructed or destroyed.
class TemporaryZone {
public:
    explicit TemporaryZone(const std::optional<std::string>& zone) {
        if (const char* const old = std::getenv("TZ")) old_ = old;
        set(zone);
    }
    ~TemporaryZone() { set(old_); }
    TemporaryZone(const TemporaryZone&) = delete;
    TemporaryZone& operator=(const TemporaryZone&) = delete;

private:
    static void set(const std::optional<std::string>& zone) {
        if (zone) {
            setenv("TZ", zone->c_str(), 1);
        } else {
            unsetenv("TZ");
        }
    }

    std::optional<std::string> old_{};
};

}  // namespace VanticRestKit::test
