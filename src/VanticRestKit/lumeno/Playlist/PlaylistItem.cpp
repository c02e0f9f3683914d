#include <VanticRestKit/lumeno/Playlist/PlaylistItem.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<PlaylistItem>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<PlaylistItem>(
        required<&PlaylistItem::type>("type"),
        required<&PlaylistItem::streams>("streams"),
        lenient<&PlaylistItem::title>("title"),
        lenientObject("captions",
            lenient<&PlaylistItem::captionsSrcVtt>("src-vtt")),
        lenient<&PlaylistItem::warning>("warning"));
    // clang-format on
    return plan;
}

}  // namespace VanticRestKit
