#include <VanticRestKit/platform/date/detail/DeviceZone.h>

#include <sys/stat.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <limits>
#include <mutex>

namespace VanticRestKit::detail {

namespace {

constexpr std::int64_t hour = 3600;

/// Farther from UTC than the clocks of any zone can be.
constexpr std::int64_t farthestOffset = 26 * hour;

/// Shorter than the time that any zone has kept between two transitions; the least so far was four days.
constexpr std::int64_t probeStep = 72 * hour;

constexpr std::int32_t never = std::numeric_limits<std::int32_t>::max();

/// How many seconds the device's clocks are ahead of UTC at an instant.
std::int32_t offsetAt(std::int64_t instant) noexcept {
    const auto time = static_cast<std::time_t>(instant);
    std::tm fields{};
    if (localtime_r(&time, &fields) == nullptr) return 0;
    return static_cast<std::int32_t>(fields.tm_gmtoff);
}

/// The first instant behind `from`, and not behind `to`, that has another offset than `from`.
std::int64_t transitionBetween(std::int64_t from, std::int64_t to) noexcept {
    const std::int32_t before = offsetAt(from);
    while (to - from > 1) {
        const std::int64_t middle = from + (to - from) / 2;
        (offsetAt(middle) == before ? from : to) = middle;
    }
    return to;
}

/// The last instant at which the clocks show `clockSeconds`, asked of the C library alone. It can lie under
/// two offsets only: that from before and that from behind a transition nearby.
std::optional<std::int64_t> searchedInstant(std::int64_t clockSeconds) noexcept {
    for (const std::int64_t away : {farthestOffset, -farthestOffset}) {
        const std::int64_t instant = clockSeconds - offsetAt(clockSeconds + away);
        if (instant + offsetAt(instant) == clockSeconds) return instant;
    }
    return std::nullopt;
}

/// Has the C library read the zone anew. It takes a lock of its own for that, which ThreadSanitizer does not see; and
/// so does this.
void readZoneAnew() noexcept {
    static std::mutex& mutex = *new std::mutex;
    const std::lock_guard lock(mutex);
    tzset();
}

/// A clock that ticks a few hundred times a second and costs next to nothing to read.
std::int64_t coarseTick() noexcept {
#if defined(CLOCK_MONOTONIC_COARSE)
    constexpr clockid_t clock = CLOCK_MONOTONIC_COARSE;
#else
    constexpr clockid_t clock = CLOCK_MONOTONIC;
#endif
    std::timespec now{};
    clock_gettime(clock, &now);
    return now.tv_sec * 1000 + now.tv_nsec / 1'000'000;
}

}  // namespace

DeviceZone& DeviceZone::ofThisThread() noexcept {
    constinit static thread_local DeviceZone zone;
    return zone;
}

void DeviceZone::hold() noexcept {
    if (holds_ == 0) lookForChange();
    ++holds_;
}

void DeviceZone::release() noexcept { --holds_; }

std::optional<std::int64_t> DeviceZone::instant(std::int64_t clockSeconds) noexcept {
    if (holds_ == 0) lookForChange();
    const auto number = static_cast<std::int32_t>(clockSeconds >> stretchBits);
    Stretch& stretch = stretches_[static_cast<std::uint32_t>(number) % stretchCount];
    if (!stretch.known || stretch.number != number) stretch = learned(number);
    const auto within = static_cast<std::int32_t>(clockSeconds & ((std::int64_t{1} << stretchBits) - 1));
    if (within < stretch.before) return clockSeconds - stretch.offsetBefore;
    if (within >= stretch.after) return clockSeconds - stretch.offsetAfter;
    if (stretch.several) return searchedInstant(clockSeconds);
    return std::nullopt;
}

DeviceZone::Stretch DeviceZone::learned(std::int32_t number) noexcept {
    const std::int64_t begin = static_cast<std::int64_t>(number) << stretchBits;
    const std::int64_t end = begin + (std::int64_t{1} << stretchBits) + farthestOffset;
    std::int64_t at = begin - farthestOffset;
    std::int32_t offset = offsetAt(at);
    Stretch stretch{.number = number, .before = never, .after = never, .offsetBefore = offset, .known = true};
    for (; at < end; at += probeStep) {
        const std::int64_t next = std::min(at + probeStep, end);
        const std::int32_t nextOffset = offsetAt(next);
        if (nextOffset == offset) continue;
        const std::int64_t transition = transitionBetween(at, next);
        if (stretch.before != never || offsetAt(transition) != nextOffset) {
            stretch.before = 0;
            stretch.after = never;
            stretch.several = true;
            return stretch;
        }
        // Where the clocks go back, the hour that they show twice belongs to the later offset.
        const auto atTransition = static_cast<std::int32_t>(transition - begin);
        stretch.before = atTransition + std::min(offset, nextOffset);
        stretch.after = atTransition + nextOffset;
        stretch.offsetAfter = nextOffset;
        offset = nextOffset;
    }
    return stretch;
}

void DeviceZone::lookForChange() noexcept {
    const char* const zoneText = std::getenv("TZ");
    const bool changed = !isRemembered(zoneText) || (zoneText == nullptr && systemZoneChanged());
    if (!changed) return;
    remember(zoneText);
    readZoneAnew();
    stretches_ = {};
}

bool DeviceZone::isRemembered(const char* zoneText) const noexcept {
    if (zoneText == nullptr) return source_ == Source::system;
    return source_ == Source::variable && std::strcmp(zoneText, zoneText_.data()) == 0;
}

/// A text that is too long to be remembered counts as changed each time, which costs time and no more.
void DeviceZone::remember(const char* zoneText) noexcept {
    source_ = Source::unknown;
    if (zoneText == nullptr) {
        source_ = Source::system;
        mark_ = systemZoneMark();
        lookedAt_ = coarseTick();
    } else if (const std::size_t length = std::strlen(zoneText); length < zoneText_.size()) {
        source_ = Source::variable;
        std::memcpy(zoneText_.data(), zoneText, length + 1);
    }
}

bool DeviceZone::systemZoneChanged() noexcept {
    const std::int64_t now = coarseTick();
    if (now == lookedAt_) return false;
    lookedAt_ = now;
    return systemZoneMark() != mark_;
}

DeviceZone::FileMark DeviceZone::systemZoneMark() noexcept {
    struct stat file {};
    if (stat("/etc/localtime", &file) != 0) return {};
    return {file.st_dev, file.st_ino, file.st_mtim.tv_sec, file.st_mtim.tv_nsec};
}

}  // namespace VanticRestKit::detail
