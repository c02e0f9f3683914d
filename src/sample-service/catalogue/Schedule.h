#pragma once

#include <optional>

#include "catalogue/Catalogue.h"
#include "catalogue/Tables.h"

namespace VanticRestKit::sample {

/// A programme in the schedule of a channel. Times are seconds since 1970.
struct Slot {
    const Video* video;  // null: the channel is closed
    long start;
    long end;
};

/// The programme of a channel at a time and the next one. Every day, from six to six (UTC), is filled in the same way
/// with the channel's own episodes and films, starting with a different one each day; a channel that closes does so at
/// eight in the evening.
struct Showing {
    Slot now;
    Slot next;
};

/// `at` must not be before 1970.
Showing scheduleOf(const Channel& channel, long at);

}  // namespace VanticRestKit::sample
