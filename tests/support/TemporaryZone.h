#pragma once

/// \file
/// Puts the device into another time zone for the time of a test.

#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>

namespace VanticRestKit::test {

/// While it lives, the device's zone is another: a name such as "Australia/Sydney", which needs the system's
/// zone files (Debian: tzdata), or any other value of TZ. Nothing means that TZ is not set. No other thread
/// may be at work while it is made or destroyed.
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
