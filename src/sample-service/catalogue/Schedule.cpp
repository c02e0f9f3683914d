#include "catalogue/Schedule.h"

#include "catalogue/VideoJSON.h"

namespace VanticRestKit::sample {

namespace {

constexpr long hour = 3'600;
constexpr long day = 24 * hour;
constexpr long opens = 6 * hour;
constexpr long closes = 20 * hour;
constexpr long grid = 300;  // programmes begin at multiples of five minutes

std::vector<const Video*> programmesOf(const Channel& channel) {
    std::vector<const Video*> found;
    for (const Show* show : catalogue().programmes()) {
        if (show->channel != channel.id) continue;
        for (const Video* video : catalogue().videosOf(*show)) found.push_back(video);
    }
    return found;
}

long lengthOf(const Video& video) { return (static_cast<long>(durationOf(video)) + grid - 1) / grid * grid; }

/// The slot that contains a time of a day that began at `dawn`.
Slot slotAt(const Channel& channel, const std::vector<const Video*>& programmes, long dawn, long at) {
    const long dusk = dawn + (channel.closesAtNight ? closes - opens : day);
    if (at >= dusk) return {nullptr, dusk, dawn + day};
    auto index = static_cast<std::size_t>(dawn / day) % programmes.size();
    for (long start = dawn;; index = (index + 1) % programmes.size()) {
        const long end = start + lengthOf(*programmes[index]);
        // A programme that would run past the end of the day is shortened.
        if (at < end) return {programmes[index], start, std::min(end, dusk)};
        start = end;
    }
}

Slot slotAt(const Channel& channel, long at) {
    const long sinceDawn = at - opens;
    const long dawn = sinceDawn - ((sinceDawn % day) + day) % day + opens;
    return slotAt(channel, programmesOf(channel), dawn, at);
}

}  // namespace

Showing scheduleOf(const Channel& channel, long at) {
    const Slot now = slotAt(channel, at);
    return {now, slotAt(channel, now.end)};
}

}  // namespace VanticRestKit::sample
