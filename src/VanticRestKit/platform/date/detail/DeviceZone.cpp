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

/// More than the offset from UTC of any zone.
constexpr std::int64_t maxOffset = 26 * hour;

/// Less than the time between two transitions of any zone; the shortest so far was four days.
constexpr std::int64_t probeStep = 72 * hour;

constexpr std::int32_t never = std::numeric_limits<std::int32_t>::max();

/// The device's offset from UTC, in seconds, at an instant.
std::int32_t offsetAt(std::int64_t instant) noexcept {
    const auto time = static_cast<std::time_t>(instant);
    std::tm fields{};
    if (localtime_r(&time, &fields) == nullptr) return 0;
    return static_cast<std::int32_t>(fields.tm_gmtoff);
}

/// The first instant after `from`, at most `to`, with a different offset from that at `from`.
std::int64_t transitionBetween(std::int64_t from, std::int64_t to) noexcept {
    const std::int32_t before = offsetAt(from);
    while (to - from > 1) {
        const std::int64_t middle = from + (to - from) / 2;
        (offsetAt(middle) == before ? from : to) = middle;
    }
    return to;
}

/// The last instant at which the local time is `clockSeconds`, by the C library alone. Only two offsets are possible:
/// those before and after a nearby transition.
std::optional<std::int64_t> searchedInstant(std::int64_t clockSeconds) noexcept {
    for (const std::int64_t away : {maxOffset, -maxOffset}) {
        const std::int64_t instant = clockSeconds - offsetAt(clockSeconds + away);
        if (instant + offsetAt(instant) == clockSeconds) return instant;
    }
    return std::nullopt;
}

/// Makes the C library read the zone again. It does so under a lock of its own that ThreadSanitizer does not see, hence
/// a second lock here.
void reloadZone() noexcept {
    static std::mutex& mutex = *new std::mutex;
    const std::lock_guard lock(mutex);
    tzset();
}

/// A clock with a resolution of a few milliseconds that is cheap to read.
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
    if (holds_ == 0) checkForChange();
    ++holds_;
}

void DeviceZone::release() noexcept { --holds_; }

std::optional<std::int64_t> DeviceZone::instant(std::int64_t clockSeconds) noexcept {
    if (holds_ == 0) checkForChange();
    const auto number = static_cast<std::int32_t>(clockSeconds >> stretchBits);
    Stretch& stretch = stretches_[static_cast<std::uint32_t>(number) % stretchCount];
    if (!stretch.known || stretch.number != number) stretch = learn(number);
    const auto within = static_cast<std::int32_t>(clockSeconds & ((std::int64_t{1} << stretchBits) - 1));
    if (within < stretch.before) return clockSeconds - stretch.offsetBefore;
    if (within >= stretch.after) return clockSeconds - stretch.offsetAfter;
    if (stretch.several) return searchedInstant(clockSeconds);
    return std::nullopt;
}

DeviceZone::Stretch DeviceZone::learn(std::int32_t number) noexcept {
    const std::int64_t begin = static_cast<std::int64_t>(number) << stretchBits;
    const std::int64_t end = begin + (std::int64_t{1} << stretchBits) + maxOffset;
    std::int64_t at = begin - maxOffset;
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
        // If clocks go back, the repeated hour belongs to the later offset.
        const auto atTransition = static_cast<std::int32_t>(transition - begin);
        stretch.before = atTransition + std::min(offset, nextOffset);
        stretch.after = atTransition + nextOffset;
        stretch.offsetAfter = nextOffset;
        offset = nextOffset;
    }
    return stretch;
}

void DeviceZone::checkForChange() noexcept {
    const char* const zoneText = std::getenv("TZ");
    const bool changed = !isRemembered(zoneText) || (zoneText == nullptr && systemZoneChanged());
    if (!changed) return;
    remember(zoneText);
    reloadZone();
    stretches_ = {};
}

bool DeviceZone::isRemembered(const char* zoneText) const noexcept {
    if (zoneText == nullptr) return source_ == Source::system;
    return source_ == Source::variable && std::strcmp(zoneText, zoneText_.data()) == 0;
}

/// A value that is too long to be stored counts as changed each time, which only costs time.
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
