#include <VanticRestKit/kavro/KAVROSegmentsModel.h>
#include <VanticRestKit/lumeno/Categories/Category.h>
#include <VanticRestKit/lumeno/CollectionItem/DirectPlayableVideo.h>
#include <VanticRestKit/lumeno/Image/Image.h>
#include <VanticRestKit/lumeno/Link/Link.h>
#include <VanticRestKit/lumeno/Message/Message.h>
#include <VanticRestKit/lumeno/MixedCollection/MixedCollection.h>
#include <VanticRestKit/lumeno/Navigation/BrowseList.h>
#include <VanticRestKit/lumeno/Navigation/NavigationList.h>
#include <VanticRestKit/lumeno/Navigation/NavigationMainMenuList.h>
#include <VanticRestKit/lumeno/NowNext/NowNext.h>
#include <VanticRestKit/lumeno/Playlist/PlaylistItem.h>
#include <VanticRestKit/lumeno/Playlist/Streams.h>
#include <VanticRestKit/lumeno/ProductAlert/ProductAlert.h>
#include <VanticRestKit/lumeno/Remap/Remap.h>
#include <VanticRestKit/lumeno/Search/RelatedShowList.h>
#include <VanticRestKit/lumeno/Search/SearchResults.h>
#include <VanticRestKit/lumeno/Series/Series.h>
#include <VanticRestKit/lumeno/Show/Show.h>
#include <VanticRestKit/lumeno/Show/ShowsIndex.h>
#include <VanticRestKit/lumeno/Status/Status.h>
#include <VanticRestKit/lumeno/Theme/Theme.h>
#include <VanticRestKit/lumeno/Video/Participants.h>
#include <VanticRestKit/lumeno/Video/Video.h>
#include <VanticRestKit/lumeno/Video/VideoAnalytics.h>
#include <VanticRestKit/lumeno/Video/VideoList.h>
#include <VanticRestKit/recs/Recommendation.h>
#include <VanticRestKit/recs/RecommendationModule.h>
#include <VanticRestKit/trelvo/Common/Auth.h>
#include <VanticRestKit/trelvo/Common/ResponseMeta.h>
#include <VanticRestKit/trelvo/Dataset/DatasetContainer.h>
#include <VanticRestKit/trelvo/Dataset/DatasetResponse.h>
#include <VanticRestKit/trelvo/History/HistoryData.h>
#include <VanticRestKit/trelvo/History/HistoryResponse.h>
#include <VanticRestKit/trelvo/Saved/SavedData.h>
#include <VanticRestKit/trelvo/Saved/SavedResponse.h>
#include <VanticRestKit/trelvo/Token/TokenResponse.h>

#include <algorithm>

#include "arguments/Suggestions.h"
#include "Failure.h"
#include "types/Type.h"

namespace vantic {

using namespace VanticRestKit;

namespace {

std::vector<TypeEntry> registry() {
    std::vector<TypeEntry> types = {
        entry<double>("Time"),
        entry<Auth>(),
        entry<Banner>(),
        entry<BrowseItem>(),
        entry<BrowseList>(),
        entry<Category>(),
        entry<ContextualPhrases>(),
        entry<DatasetContainer>(),
        entry<DatasetResponse>(),
        entry<DirectPlayableVideo>(),
        entry<HistoryData>(),
        entry<HistoryResponse>(),
        entry<Image>(),
        entry<KAVROSegmentsModel>(),
        entry<Link>(),
        entry<Message>(),
        entry<MixedCollection>(),
        entry<NavigationItem>(),
        entry<NavigationList>(),
        entry<NavigationMainMenuItem>(),
        entry<NavigationMainMenuItemImage>(),
        entry<NavigationMainMenuList>(),
        entry<NowNext>(),
        entry<NowNextContainer>(),
        entry<Participants>(),
        entry<PlaylistItem>(),
        entry<ProductAlert>(),
        entry<Recommendation>(),
        entry<RecommendationModule>(),
        entry<RelatedShowList>(),
        entry<Remap>(),
        entry<ResponseMeta>(),
        entry<SavedData>(),
        entry<SavedResponse>(),
        entry<SearchResults>(),
        entry<Series>(),
        entry<Show>(),
        entry<ShowsGrouped>(),
        entry<ShowsIndex>(),
        entry<Status>(),
        entry<StreamInfo>(),
        entry<Streams>(),
        entry<TokenResponse>(),
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

std::vector<std::string_view> typeNames() {
    std::vector<std::string_view> names;
    for (const TypeEntry& entry : allTypes()) names.push_back(entry.one.name);
    return names;
}

const Type& typeNamed(const std::string& name) {
    for (const TypeEntry& entry : allTypes()) {
        if (entry.one.name == name) return entry.one;
        if (entry.list.name == name) return entry.list;
    }
    // A list is suggested for a list.
    const bool isList = name.size() > 2 && name.front() == '[' && name.back() == ']';
    const std::string one = isList ? name.substr(1, name.size() - 2) : name;
    throw UsageError{"there is no type " + name + suggestion(one, typeNames()) +
                     " (vantic types lists all of them)"};
}

}  // namespace vantic
