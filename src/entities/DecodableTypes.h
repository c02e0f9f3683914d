#pragma once

/// \file
/// The list of all types that documents of the services decode into, used by the command line, the golden tests and the
/// fuzzer of the decoder. Add a line for a new entity.

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

#include <type_traits>
#include <vector>

namespace VanticRestKit {

/// Calls `visit(std::type_identity<T>(), name)` for each type that a whole document decodes into. The name is the one
/// used for golden documents: a list of images is an "ImageList". Add new types at the end, because the inputs of the
/// fuzzer identify a type by its position.
template <class Visit>
void visitRootTypes(const Visit& visit) {
    visit(std::type_identity<Video>(), "Video");
    visit(std::type_identity<VideoList>(), "VideoList");
    visit(std::type_identity<std::vector<Image>>(), "ImageList");
    visit(std::type_identity<double>(), "Time");
    visit(std::type_identity<Show>(), "Show");
    visit(std::type_identity<std::vector<Show>>(), "ShowList");
    visit(std::type_identity<Series>(), "Series");
    visit(std::type_identity<ShowsIndex>(), "ShowsIndex");
    visit(std::type_identity<RelatedShowList>(), "RelatedShowList");
    visit(std::type_identity<SearchResults>(), "SearchResults");
    visit(std::type_identity<MixedCollection>(), "MixedCollection");
    visit(std::type_identity<Category>(), "Category");
    visit(std::type_identity<NavigationList>(), "NavigationList");
    visit(std::type_identity<NavigationMainMenuList>(), "NavigationMainMenuList");
    visit(std::type_identity<BrowseList>(), "BrowseList");
    visit(std::type_identity<NowNext>(), "NowNext");
    visit(std::type_identity<std::vector<Message>>(), "MessageList");
    visit(std::type_identity<ProductAlert>(), "ProductAlert");
    visit(std::type_identity<Remap>(), "Remap");
    visit(std::type_identity<TokenResponse>(), "TokenResponse");
    visit(std::type_identity<DatasetResponse>(), "DatasetResponse");
    visit(std::type_identity<HistoryResponse>(), "HistoryResponse");
    visit(std::type_identity<SavedResponse>(), "SavedResponse");
    visit(std::type_identity<KAVROSegmentsModel>(), "KAVROSegmentsModel");
    visit(std::type_identity<RecommendationModule>(), "RecommendationModule");
}

/// The same for each type that occurs only inside other types.
template <class Visit>
void visitNestedTypes(const Visit& visit) {
    visit(std::type_identity<Link>(), "Link");
    visit(std::type_identity<Image>(), "Image");
    visit(std::type_identity<Banner>(), "Banner");
    visit(std::type_identity<Status>(), "Status");
    visit(std::type_identity<ContextualPhrases>(), "ContextualPhrases");
    visit(std::type_identity<Participants>(), "Participants");
    visit(std::type_identity<PlaylistItem>(), "PlaylistItem");
    visit(std::type_identity<Streams>(), "Streams");
    visit(std::type_identity<StreamInfo>(), "StreamInfo");
    visit(std::type_identity<VideoAnalytics>(), "VideoAnalytics");
    visit(std::type_identity<DirectPlayableVideo>(), "DirectPlayableVideo");
    visit(std::type_identity<ShowsGrouped>(), "ShowsGrouped");
    visit(std::type_identity<NavigationItem>(), "NavigationItem");
    visit(std::type_identity<NavigationMainMenuItem>(), "NavigationMainMenuItem");
    visit(std::type_identity<NavigationMainMenuItemImage>(), "NavigationMainMenuItemImage");
    visit(std::type_identity<BrowseItem>(), "BrowseItem");
    visit(std::type_identity<NowNextContainer>(), "NowNextContainer");
    visit(std::type_identity<Message>(), "Message");
    visit(std::type_identity<Auth>(), "Auth");
    visit(std::type_identity<ResponseMeta>(), "ResponseMeta");
    visit(std::type_identity<DatasetContainer>(), "DatasetContainer");
    visit(std::type_identity<HistoryData>(), "HistoryData");
    visit(std::type_identity<SavedData>(), "SavedData");
    visit(std::type_identity<Recommendation>(), "Recommendation");
}

}  // namespace VanticRestKit
