#pragma once

/// \file
/// `DeviceZone`: a cache of the C library's local time zone.

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace VanticRestKit::detail {

/// Converts local times of the device's zone to instants.
///
/// The C library converts under a lock, and takes a microsecond for years in the future. So each thread caches offsets
/// for stretches of about 48 days, each with the one transition that it may contain. An object belongs to one thread.
class DeviceZone {
public:
    static DeviceZone& ofThisThread() noexcept;

    /// Between these two calls the zone is assumed not to change.
    void hold() noexcept;
    void release() noexcept;

    /// The instant, in seconds since 1970 UTC, of the local time `clockSeconds`: the later one if it occurs twice,
    /// empty if it is skipped. Years 1 to 9999.
    std::optional<std::int64_t> instant(std::int64_t clockSeconds) noexcept;

private:
    /// A stretch of local time. Counted from its beginning, one offset applies below `before` and the other from
    /// `after` on. Times in between are skipped, unless the stretch has several transitions.
    struct Stretch {
        std::int32_t number{};
        std::int32_t before{};
        std::int32_t after{};
        std::int32_t offsetBefore{};
        std::int32_t offsetAfter{};
        bool known{};
        bool several{};
    };

    /// Identifies a version of the system's zone file.
    struct FileMark {
        std::uint64_t device{};
        std::uint64_t node{};
        std::int64_t changedSeconds{};
        std::int64_t changedNanoseconds{};
        friend bool operator==(const FileMark&, const FileMark&) = default;
    };

    void checkForChange() noexcept;
    bool isRemembered(const char* zoneText) const noexcept;
    void remember(const char* zoneText) noexcept;
    bool systemZoneChanged() noexcept;
    static FileMark systemZoneMark() noexcept;
    static Stretch learn(std::int32_t number) noexcept;

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
