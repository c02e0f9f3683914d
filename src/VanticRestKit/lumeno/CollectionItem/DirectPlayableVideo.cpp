#include <VanticRestKit/lumeno/CollectionItem/DirectPlayableVideo.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<DirectPlayableVideo>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<DirectPlayableVideo>(
        lenient<&DirectPlayableVideo::id>("id"),
        lenient<&DirectPlayableVideo::href>("href"),
        lenient<&DirectPlayableVideo::playTitle>("playTitle"));
    // clang-format on
    return plan;
}

}  // namespace VanticRestKit
