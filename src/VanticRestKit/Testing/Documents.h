#pragma once

/// \file
/// Builders of all other entities: screens, lists, alerts, and the records of a user.

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
#include <VanticRestKit/lumeno/Show/Show.h>
#include <VanticRestKit/lumeno/Show/ShowsIndex.h>
#include <VanticRestKit/lumeno/Video/VideoList.h>
#include <VanticRestKit/recs/RecommendationModule.h>
#include <VanticRestKit/Testing/Builder.h>
#include <VanticRestKit/trelvo/Dataset/DatasetResponse.h>
#include <VanticRestKit/trelvo/History/HistoryResponse.h>
#include <VanticRestKit/trelvo/Saved/SavedResponse.h>
#include <VanticRestKit/trelvo/Token/TokenResponse.h>

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace VanticRestKit::Testing {

// Each function returns the document that the sample service sends for its arguments. If the fictional catalogue has no
// such item, the process ends with a message. Use `part` for a part of a document.

/// The time, in seconds since 1970.
DocumentOf<double> aTime(double seconds = 1'767'225'600);
/// The avatars.
DocumentOf<std::vector<Image>> avatars();

/// The home screen.
DocumentOf<Category> aHomeScreen();
/// The screen of a category.
DocumentOf<Category> aCategory(const std::string& id = "drama");
/// The screen of a channel.
DocumentOf<Category> aChannel(const std::string& id = "vantic-one");
/// One of the rows of the home screen; without an id, the first one that is not featured.
DocumentOf<MixedCollection> aCollection(const std::string& id = {});

/// The index of all shows.
DocumentOf<ShowsIndex> aShowsIndex();
/// Several shows.
DocumentOf<std::vector<Show>> aShowList(const std::vector<std::string>& slugs = {"harbour-lights",
                                                                                 "night-ferry"});
/// Several videos.
DocumentOf<VideoList> aVideoList(const std::vector<std::string>& houseNumbers = {"HL0101", "HL0102"});
/// The live channels.
DocumentOf<VideoList> livestreams();
/// What a live channel shows now and next.
DocumentOf<NowNext> nowAndNext();
/// The results of a search.
DocumentOf<SearchResults> searchResultsFor(const std::string& keyword = "sea");
/// Shows that are similar to a show.
DocumentOf<RelatedShowList> showsRelatedTo(const std::string& slug = "harbour-lights");

/// A navigation list: "channels" or "categories".
DocumentOf<NavigationList> aNavigationList(const std::string& type = "channels");
/// The main menu.
DocumentOf<NavigationMainMenuList> aMainMenu();
/// The browse screen.
DocumentOf<BrowseList> aBrowseList();
/// The messages.
DocumentOf<std::vector<Message>> messages();
/// An alert.
DocumentOf<ProductAlert> aProductAlert();
/// The translation of a path.
DocumentOf<Remap> aRemap(const std::string& path = "show/harbour-lights");

/// Tokens that expire after `goodFor`; zero or less: that have already expired.
DocumentOf<TokenResponse> aTokenResponse(std::chrono::seconds goodFor = std::chrono::hours(1));
/// The profile "Ann" of "test-user".
DocumentOf<DatasetResponse> aDatasetResponse();
/// The history of "test-user": two videos of Harbour Lights, the first of them watched to its end.
DocumentOf<HistoryResponse> aHistoryResponse();
/// The saved shows of "test-user": only Harbour Lights.
DocumentOf<SavedResponse> aSavedResponse();
/// The audience segments of a profile.
DocumentOf<KAVROSegmentsModel> audienceSegments();
/// A module of recommendations.
DocumentOf<RecommendationModule> recommendations(std::uint32_t limit = 6);

}  // namespace VanticRestKit::Testing
