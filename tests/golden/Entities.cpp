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

const std::vector<NamedType>& rootEntities() {
    static const auto& types = *new std::vector<NamedType>{
        {"Video", decodable<Video>},
        {"VideoList", decodable<VideoList>},
        {"ImageList", decodable<std::vector<Image>>},
        {"Time", decodable<double>},
        {"Show", decodable<Show>},
        {"ShowList", decodable<std::vector<Show>>},
        {"Series", decodable<Series>},
        {"ShowsIndex", decodable<ShowsIndex>},
        {"RelatedShowList", decodable<RelatedShowList>},
        {"SearchResults", decodable<SearchResults>},
        {"MixedCollection", decodable<MixedCollection>},
        {"Category", decodable<Category>},
        {"NavigationList", decodable<NavigationList>},
        {"NavigationMainMenuList", decodable<NavigationMainMenuList>},
        {"BrowseList", decodable<BrowseList>},
        {"NowNext", decodable<NowNext>},
        {"MessageList", decodable<std::vector<Message>>},
        {"ProductAlert", decodable<ProductAlert>},
        {"Remap", decodable<Remap>},
        {"TokenResponse", decodable<TokenResponse>},
        {"DatasetResponse", decodable<DatasetResponse>},
        {"HistoryResponse", decodable<HistoryResponse>},
        {"SavedResponse", decodable<SavedResponse>},
        {"KAVROSegmentsModel", decodable<KAVROSegmentsModel>},
        {"RecommendationModule", decodable<RecommendationModule>},
    };
    return types;
}

}  // namespace VanticRestKit::test
