#include <VanticRestKit/lumeno/CollectionItem/DirectPlayableVideo.h>
#include <VanticRestKit/lumeno/Image/Banner.h>
#include <VanticRestKit/lumeno/Image/Image.h>
#include <VanticRestKit/lumeno/Link/Link.h>
#include <VanticRestKit/lumeno/Playlist/PlaylistItem.h>
#include <VanticRestKit/lumeno/Playlist/StreamInfo.h>
#include <VanticRestKit/lumeno/Playlist/Streams.h>
#include <VanticRestKit/lumeno/Status/Status.h>
#include <VanticRestKit/lumeno/Theme/ContextualPhrases.h>
#include <VanticRestKit/lumeno/Video/Participants.h>
#include <VanticRestKit/lumeno/Video/Video.h>
#include <VanticRestKit/lumeno/Video/VideoAnalytics.h>
#include <VanticRestKit/lumeno/Video/VideoList.h>

#include <algorithm>

#include "Failure.h"
#include "types/Type.h"

namespace vantic {

using namespace VanticRestKit;

namespace {

std::vector<TypeEntry> registry() {
    std::vector<TypeEntry> types = {
        entry<double>("Time"),
        entry<Banner>(),
        entry<ContextualPhrases>(),
        entry<DirectPlayableVideo>(),
        entry<Image>(),
        entry<Link>(),
        entry<Participants>(),
        entry<PlaylistItem>(),
        entry<Status>(),
        entry<StreamInfo>(),
        entry<Streams>(),
        entry<Video>(),
        entry<VideoAnalytics>(),
        entry<VideoList>(),
    };
    std::sort(types.begin(), types.end(),
              [](const TypeEntry& a, const TypeEntry& b) { return a.one.name < b.one.name; });
    return types;
}

}  // namespace

std::span<const TypeEntry> allTypes() {
    static const std::vector<TypeEntry> types = registry();
    return types;
}

const Type& typeNamed(const std::string& name) {
    for (const TypeEntry& entry : allTypes()) {
        if (entry.one.name == name) return entry.one;
        if (entry.list.name == name) return entry.list;
    }
    throw UsageError{"there is no type " + name};
}

}  // namespace vantic
