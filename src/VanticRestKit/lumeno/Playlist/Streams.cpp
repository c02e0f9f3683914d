#include <VanticRestKit/lumeno/Playlist/Streams.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<Streams>() {
    using namespace mapping;
    static const TypePlan& plan = object<Streams>(
        optional<&Streams::mpegdash>("mpegdash"),
        optional<&Streams::fairplay>("fairplay"),
        required<&Streams::hls>("hls"));
    return plan;
}

}  // namespace VanticRestKit
