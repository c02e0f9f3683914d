// Entities are read from JSON but never written. Only routes with a body and the enumerations of the user data service
// can be encoded.

#include <gtest/gtest.h>
#include <VanticRestKit/VanticRestKit.h>

namespace VanticRestKit {
namespace {

template <class T>
concept Encodable = requires(const T& value) {
    JSONEncoder().encode(value);
};

template <class... Types>
constexpr bool noneIsEncodable = !(Encodable<Types> || ...);
template <class... Types>
constexpr bool eachIsDecodable = (Decodable<Types> && ...);

template <class... Types>
constexpr bool areDecodeOnly = noneIsEncodable<Types...>&& eachIsDecodable<Types...>;

// The concept distinguishes the two.
static_assert(Encodable<KAVROSegmentsURI> && Encodable<CreateDatasetURI> && Encodable<UpdateDatasetURI>);
static_assert(Encodable<SourceSystem> && Encodable<TrelvoSlug>);

static_assert(areDecodeOnly<Video, VideoList, Participants, PlaylistItem, Streams, StreamInfo>);
static_assert(areDecodeOnly<Show, Series, ShowsIndex, RelatedShowList, SearchResults>);
static_assert(areDecodeOnly<Link, Image, Banner, Status, ContextualPhrases, DirectPlayableVideo>);
static_assert(areDecodeOnly<MixedCollection, Category, BrowseItem, BrowseList, NavigationItem, NavigationList,
                            NavigationMainMenuItem, NavigationMainMenuItemImage, NavigationMainMenuList>);
static_assert(areDecodeOnly<NowNext, NowNextContainer, Message, ProductAlert, Remap>);
static_assert(areDecodeOnly<Auth, ResponseMeta, TokenResponse, DatasetContainer, DatasetResponse>);
static_assert(areDecodeOnly<HistoryData, HistoryResponse, SavedData, SavedResponse>);
static_assert(areDecodeOnly<KAVROSegmentsModel, RecommendationModule, FailableCodable<Show>>);
static_assert(noneIsEncodable<ShowSummary, Subprofile, CollectionItem, VideoAnalytics>);

TEST(Entities, AreDecodeOnly) {
    // Everything is checked at compile time.
    SUCCEED();
}

}  // namespace
}  // namespace VanticRestKit
