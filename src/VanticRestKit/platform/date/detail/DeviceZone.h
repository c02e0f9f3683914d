#pragma once

/// \file
/// The device's zone as the C library knows it, with a memory.

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace VanticRestKit::detail {

/// Turns what the clocks of the device's zone show into instants.
///
/// The C library answers under a lock, and for years to come it takes a microsecond. So each thread remembers
/// what it was told, in stretches of about 48 days, each with the one transition that may fall into it. An
/// object belongs to one thread.
class DeviceZone {
public:
    static DeviceZone& ofThisThread() noexcept;

    /// Between these two the zone is taken to stay as it is.
    void hold() noexcept;
    void release() noexcept;

    /// The instant, in seconds since 1970 UTC, at which the clocks show `clockSeconds`; the later one where
    /// they show it twice, nothing where they skip it. Years 1 to 9999.
    std::optional<std::int64_t> instant(std::int64_t clockSeconds) noexcept;

private:
    /// A stretch of clock time, counted from its beginning: below `before` one offset holds, from `after` on
    /// the other. What lies between is skipped, unless the stretch has several transitions.
    struct Stretch {
        std::int32_t number{};
        std::int32_t before{};
        std::int32_t after{};
        std::int32_t offsetBefore{};
        std::int32_t offsetAfter{};
        bool known{};
        bool several{};
    };

    /// What tells one version of the system's zone file from another.
    struct FileMark {
        std::uint64_t device{};
        std::uint64_t node{};
        std::int64_t changedSeconds{};
        std::int64_t changedNanoseconds{};
        friend bool operator==(const FileMark&, const FileMark&) = default;
    };

    void lookForChange() noexcept;
    bool isRemembered(const char* zoneText) const noexcept;
    void remember(const char* zoneText) noexcept;
    bool systemZoneChanged() noexcept;
    static FileMark systemZoneMark() noexcept;
    static Stretch learned(std::int32_t number) noexcept;

    static constexpr int stretchBits = 22;
    static constexpr std::size_t stretchCount = 256;

    std::array<Stretch, stretchCount> stretches_{};
    enum class Source : std::uint8_t { unknown, system, variable } source_{};
    std::array<char, 128> zoneText_{};
    FileMark mark_{};
    std::int64_t lookedAt_{};
    int holds_{};
};

}  // namespace VanticRestKit::detail
