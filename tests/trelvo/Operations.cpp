#include "Operations.h"

#include <VanticRestKit/trelvo/Dataset/detail/DatasetOperations.h>
#include <VanticRestKit/trelvo/detail/TrelvoProbe.h>
#include <VanticRestKit/trelvo/Saved/detail/SavedOperations.h>

namespace VanticRestKit::test {

namespace {

using Kind = TrelvoError::Kind;
using Containers = std::vector<DatasetContainer>;
using Subprofiles = std::vector<Subprofile>;
using History = std::vector<HistoryData>;
using Saved = std::vector<SavedData>;

constexpr const char* profiles = R"("data":[{"uid":"u1","namespace":"profile","dataset":{}}])";
constexpr const char* noRecords = R"("data":[])";
constexpr const char* encodedName = "dataset=%7B%22displayName%22%3A%22A%20%26%20B%22%7D";
const std::string user = "?UID=u1&source=lumeno";

Dictionary named() { return {{"displayName", "A & B"}}; }

detail::TrelvoState& stateOf(Trelvo& trelvo) { return TrelvoProbe::state(trelvo); }

std::vector<Operation> datasetOperations() {
    return {
        {.name = "getDataset",
         .nameInErrors = "getDataset",
         .method = "GET",
         .target = "/v2/dataset/ns" + user,
         .good = profiles,
         .notFound = Kind::datasetDoesNotExist,
         .needsClient = true,
         .run =
             [](Trelvo& trelvo, const TrelvoContext& context, Completed done) {
                 detail::runOperation(
                     stateOf(trelvo),
                     detail::getDataset(
                         {.namespace_ = "ns", .includePrivateData = false, .includeFamilyData = false}),
                     context, completion<Containers>(std::move(done)));
             }},
        {.name = "createDataset",
         .nameInErrors = "createDataset",
         .method = "POST",
         .target = "/v2/dataset/ns" + user + "&include=private",
         .body = encodedName,
         .good = profiles,
         .emptyAnswer = Kind::unknown,
         .run =
             [](Trelvo& trelvo, const TrelvoContext& context, Completed done) {
                 detail::runOperation(stateOf(trelvo), detail::createDataset("ns", named()), context,
                                      completion<DatasetContainer>(std::move(done)));
             }},
        {.name = "updateDataset",
         .nameInErrors = "updateDataset",
         .method = "PATCH",
         .target = "/v2/dataset/ns" + user + "&include=private",
         .body = encodedName,
         .good = profiles,
         .emptyAnswer = Kind::unknown,
         .run =
             [](Trelvo& trelvo, const TrelvoContext& context, Completed done) {
                 detail::runOperation(stateOf(trelvo), detail::updateDataset("ns", named()), context,
                                      completion<DatasetContainer>(std::move(done)));
             }},
        {.name = "deleteDataset",
         .nameInErrors = "deleteDataset",
         .method = "DELETE",
         .target = "/v2/dataset/ns" + user,
         .run =
             [](Trelvo& trelvo, const TrelvoContext& context, Completed done) {
                 detail::runOperation(stateOf(trelvo), detail::deleteDataset("ns"), context,
                                      completion<void>(std::move(done)));
             }},
    };
}

std::vector<Operation> subprofileOperations() {
    return {
        {.name = "getSubprofiles",
         .nameInErrors = "getDataset",
         .method = "GET",
         .target = "/v2/dataset/profile" + user + "&include=private,family",
         .good = profiles,
         .notFound = Kind::datasetDoesNotExist,
         .needsClient = true,
         .run =
             [](Trelvo& trelvo, const TrelvoContext& context, Completed done) {
                 trelvo.getSubprofiles({.includePrivateData = true,
                                        .includeFamilyData = true,
                                        .completionHandler = completion<Subprofiles>(std::move(done))},
                                       context);
             }},
        {.name = "createSubprofile",
         .nameInErrors = "createDataset",
         .method = "POST",
         .target = "/v2/dataset/profile" + user + "&include=private",
         .body = encodedName,
         .good = profiles,
         .emptyAnswer = Kind::unknown,
         .run =
             [](Trelvo& trelvo, const TrelvoContext& context, Completed done) {
                 trelvo.createSubprofile(
                     {.dataset = named(), .completionHandler = completion<Subprofile>(std::move(done))},
                     context);
             }},
        {.name = "updateSubprofile",
         .nameInErrors = "updateDataset",
         .method = "PATCH",
         .target = "/v2/dataset/profile" + user + "&include=private",
         .body = encodedName,
         .good = profiles,
         .emptyAnswer = Kind::unknown,
         .run =
             [](Trelvo& trelvo, const TrelvoContext& context, Completed done) {
                 trelvo.updateSubprofile(
                     {.dataset = named(), .completionHandler = completion<Subprofile>(std::move(done))},
                     context);
             }},
    };
}

std::vector<Operation> historyLists() {
    return {
        {.name = "viewingHistory",
         .nameInErrors = "listRecentVideos",
         .method = "GET",
         .target = "/v2/history/video?UID=u1&slug=watchlist&source=lumeno&raw=1&limit=7",
         .good = noRecords,
         .keepsTokens = false,
         .emptyAnswer = Kind::unableToRetrieveHistoryData,
         .run =
             [](Trelvo& trelvo, const TrelvoContext& context, Completed done) {
                 trelvo.viewingHistory(
                     {.limit = 7U, .completionHandler = completion<History>(std::move(done))}, context);
             }},
        {.name = "listRecentVideos",
         .nameInErrors = "listRecentVideos",
         .method = "GET",
         .target = "/v2/history/video/recent?UID=u1&slug=watchlist&source=lumeno&done=1&raw=1&limit=7",
         .good = noRecords,
         .keepsTokens = false,
         .emptyAnswer = Kind::unableToRetrieveHistoryData,
         .run =
             [](Trelvo& trelvo, const TrelvoContext& context, Completed done) {
                 trelvo.listRecentVideos({.limit = 7U,
                                          .markedAsDone = true,
                                          .completionHandler = completion<History>(std::move(done))},
                                         context);
             }},
        {.name = "listVideosForShow",
         .nameInErrors = "listVideosForShow",
         .method = "GET",
         .target = "/v2/history/show/42?UID=u1&slug=watchlist&source=lumeno&raw=1&done=1",
         .good = noRecords,
         .keepsTokens = false,
         .emptyAnswer = Kind::unableToRetrieveHistoryData,
         .run =
             [](Trelvo& trelvo, const TrelvoContext& context, Completed done) {
                 trelvo.listVideosForShow({.showId = 42,
                                           .markedAsDone = true,
                                           .completionHandler = completion<History>(std::move(done))},
                                          context);
             }},
    };
}

std::vector<Operation> historyOperations() {
    return {
        {.name = "deleteHistory",
         .nameInErrors = "deleteHistory",
         .method = "DELETE",
         .target = "/v2/history" + user + "&slug=watchlist",
         .notFound = std::nullopt,
         .needsClient = true,
         .run =
             [](Trelvo& trelvo, const TrelvoContext& context, Completed done) {
                 trelvo.deleteHistory({.completionHandler = completion<void>(std::move(done))}, context);
             }},
        {.name = "getVideoProgress",
         .nameInErrors = "getVideoProgress",
         .method = "GET",
         .target = "/v2/history/show/42/video/ZW1" + user + "&slug=watchlist&raw=1",
         .good = noRecords,
         .keepsTokens = false,
         .emptyAnswer = Kind::unableToRetrieveHistoryData,
         .run =
             [](Trelvo& trelvo, const TrelvoContext& context, Completed done) {
                 trelvo.getVideoProgress({.showId = 42,
                                          .houseNumber = "ZW1",
                                          .completionHandler = completion<History>(std::move(done))},
                                         context);
             }},
        {.name = "updateVideoProgress",
         .nameInErrors = "updateVideoProgress",
         .method = "PATCH",
         .target = "/v2/history/show/42/video/ZW1/progress/95" + user + "&slug=watchlist&raw=1&done=0",
         .good = noRecords,
         .keepsTokens = false,
         .emptyAnswer = Kind::unableToRetrieveHistoryData,
         .run =
             [](Trelvo& trelvo, const TrelvoContext& context, Completed done) {
                 trelvo.updateVideoProgress({.showId = 42,
                                             .houseNumber = "ZW1",
                                             .progress = 95,
                                             .isDone = false,
                                             .completionHandler = completion<History>(std::move(done))},
                                            context);
             }},
    };
}

std::vector<Operation> watchlistOperations() {
    return {
        {.name = "listWatchlistShowIds",
         .nameInErrors = "listWatchlistShowIds",
         .method = "GET",
         .target = "/v2/saved/watchlist/show?UID=u1&raw=1&source=lumeno",
         .good = noRecords,
         .emptyAnswer = Kind::unableToRetrieveSavedData,
         .run =
             [](Trelvo& trelvo, const TrelvoContext& context, Completed done) {
                 trelvo.listWatchlistShowIds({.completionHandler = completion<Saved>(std::move(done))},
                                             context);
             }},
        {.name = "addWatchlistShow",
         .nameInErrors = "addWatchlistShow",
         .method = "POST",
         .target = "/v2/saved/watchlist/show/42?UID=u1&raw=1&source=lumeno",
         .good = noRecords,
         .emptyAnswer = Kind::unableToRetrieveSavedData,
         .run =
             [](Trelvo& trelvo, const TrelvoContext& context, Completed done) {
                 trelvo.addWatchlistShow(
                     {.showId = 42, .completionHandler = completion<Saved>(std::move(done))}, context);
             }},
        {.name = "deleteShow",
         .nameInErrors = "deleteShow",
         .method = "DELETE",
         .target = "/v2/saved/watchlist/show/42" + user,
         .run =
             [](Trelvo& trelvo, const TrelvoContext& context, Completed done) {
                 trelvo.deleteShow({.showId = 42, .completionHandler = completion<void>(std::move(done))},
                                   context);
             }},
        {.name = "deleteWatchlist",
         .nameInErrors = "deleteWatchlist",
         .method = "DELETE",
         .target = "/v2/saved/watchlist" + user,
         .run =
             [](Trelvo& trelvo, const TrelvoContext& context, Completed done) {
                 detail::runOperation(stateOf(trelvo), detail::deleteWatchlist(), context,
                                      completion<void>(std::move(done)));
             }},
    };
}

}  // namespace

const std::vector<Operation>& operations() {
    static const std::vector<Operation>& all = *[] {
        auto* const joined = new std::vector<Operation>(datasetOperations());
        for (const auto& more :
             {subprofileOperations(), historyLists(), historyOperations(), watchlistOperations()}) {
            joined->insert(joined->end(), more.begin(), more.end());
        }
        return joined;
    }();
    return all;
}

}  // namespace VanticRestKit::test
