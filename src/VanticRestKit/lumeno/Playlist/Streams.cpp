#include <VanticRestKit/lumeno/Playlist/Streams.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<Streams>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Streams>(
        optional<&Streams::mpegdash>("mpegdash"),
        optional<&Streams::fairplay>("fairplay"),
        required<&Streams::hls>("hls"));
    // clang-format on
    return plan;
}

}  // namespace VanticRestKit
