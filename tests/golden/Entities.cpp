#include <golden/Entities.h>

#include <VanticRestKit/kavro/KAVROSegmentsModel.h>
#include <VanticRestKit/lumeno/Categories/Category.h>
#include <VanticRestKit/lumeno/Image/Image.h>
#include <VanticRestKit/lumeno/Message/Message.h>
#include <VanticRestKit/lumeno/MixedCollection/MixedCollection.h>
#include <VanticRestKit/lumeno/Navigation/BrowseList.h>
#include <VanticRestKit/lumeno/Navigation/NavigationList.h>
#include <VanticRestKit/lumeno/Navigation/NavigationMainMenuList.h>
#include <VanticRestKit/lumeno/NowNext/NowNext.h>
#include <VanticRestKit/lumeno/ProductAlert/ProductAlert.h>
#include <VanticRestKit/lumeno/Remap/Remap.h>
#include <VanticRestKit/lumeno/Search/RelatedShowList.h>
#include <VanticRestKit/lumeno/Search/SearchResults.h>
#include <VanticRestKit/lumeno/Series/Series.h>
#include <VanticRestKit/lumeno/Show/Show.h>
#include <VanticRestKit/lumeno/Show/ShowsIndex.h>
#include <VanticRestKit/lumeno/Video/VideoList.h>
#include <VanticRestKit/recs/RecommendationModule.h>
#include <VanticRestKit/trelvo/Dataset/DatasetResponse.h>
#include <VanticRestKit/trelvo/History/HistoryResponse.h>
#include <VanticRestKit/trelvo/Saved/SavedResponse.h>
#include <VanticRestKit/trelvo/Token/TokenResponse.h>

namespace VanticRestKit::test {

namespace {

template <class T>
NamedType named(std::string_view name) {
    return {name, decodable<T>, decodable<std::optional<T>>, decodable<std::vector<std::optional<T>>>};
}

}  // namespace

const std::vector<NamedType>& rootEntities() {
    static const auto& types = *new std::vector<NamedType>{
        named<Video>("Video"),
        named<VideoList>("VideoList"),
        named<std::vector<Image>>("ImageList"),
        named<double>("Time"),
        named<Show>("Show"),
        named<std::vector<Show>>("ShowList"),
        named<Series>("Series"),
        named<ShowsIndex>("ShowsIndex"),
        named<RelatedShowList>("RelatedShowList"),
        named<SearchResults>("SearchResults"),
        named<MixedCollection>("MixedCollection"),
        named<Category>("Category"),
        named<NavigationList>("NavigationList"),
        named<NavigationMainMenuList>("NavigationMainMenuList"),
        named<BrowseList>("BrowseList"),
        named<NowNext>("NowNext"),
        named<std::vector<Message>>("MessageList"),
        named<ProductAlert>("ProductAlert"),
        named<Remap>("Remap"),
        named<TokenResponse>("TokenResponse"),
        named<DatasetResponse>("DatasetResponse"),
        named<HistoryResponse>("HistoryResponse"),
        named<SavedResponse>("SavedResponse"),
        named<KAVROSegmentsModel>("KAVROSegmentsModel"),
        named<RecommendationModule>("RecommendationModule"),
    };
    return types;
}

const std::vector<NamedType>& nestedEntities() {
    static const auto& types = *new std::vector<NamedType>{
        named<Link>("Link"),
        named<Image>("Image"),
        named<Banner>("Banner"),
        named<Status>("Status"),
        named<ContextualPhrases>("ContextualPhrases"),
        named<Participants>("Participants"),
        named<PlaylistItem>("PlaylistItem"),
        named<Streams>("Streams"),
        named<StreamInfo>("StreamInfo"),
        named<VideoAnalytics>("VideoAnalytics"),
        named<DirectPlayableVideo>("DirectPlayableVideo"),
        named<ShowsGrouped>("ShowsGrouped"),
        named<NavigationItem>("NavigationItem"),
        named<NavigationMainMenuItem>("NavigationMainMenuItem"),
        named<NavigationMainMenuItemImage>("NavigationMainMenuItemImage"),
        named<BrowseItem>("BrowseItem"),
        named<NowNextContainer>("NowNextContainer"),
        named<Message>("Message"),
        named<Auth>("Auth"),
        named<ResponseMeta>("ResponseMeta"),
        named<DatasetContainer>("DatasetContainer"),
        named<HistoryData>("HistoryData"),
        named<SavedData>("SavedData"),
        named<Recommendation>("Recommendation"),
    };
    return types;
}

}  // namespace VanticRestKit::test
