// The records of history and watchlist, and the variants of their calls.

#include <trelvo/Client.h>
#include <limits>

namespace VanticRestKit::test {
namespace {

using History = std::vector<HistoryData>;
using Saved = std::vector<SavedData>;

const std::string watched =
    R"({"uid":"u1","oid":"o","slug":"watchlist","namespace":"n","key":"k","progress":95,"done":false)";
const std::string savedShow = R"({"oid":"o","slug":"watchlist","namespace":"n","key":"42","order":1)";

class TrelvoRecords : public Client {
protected:
    TrelvoRecords() { saveGoodTokens(); }

    template <class T>
    Trelvo::Completion<T> into(std::optional<Result<T, TrelvoError>>& result) {
        return [&result](Result<T, TrelvoError> came) { result.emplace(std::move(came)); };
    }
    Result<History, TrelvoError> history(const std::string& body, std::int64_t status = 200) {
        std::optional<Result<History, TrelvoError>> result;
        trelvo->listRecentVideos({.limit = 5U, .markedAsDone = false, .completionHandler = into(result)},
                                 context);
        session->answer(answered_++, reply(status, body));
        return result.value_or(Failure(TrelvoError::unknown("no outcome")));
    }
    Result<Saved, TrelvoError> watchlist(const std::string& body) {
        std::optional<Result<Saved, TrelvoError>> result;
        trelvo->listWatchlistShowIds({.completionHandler = into(result)}, context);
        session->answer(answered_++, reply(200, body));
        return result.value_or(Failure(TrelvoError::unknown("no outcome")));
    }
    /// The request that `listVideosForShow` sends.
    std::string sentForShow(std::int64_t show, std::optional<bool> done) {
        trelvo->listVideosForShow({.showId = show,
                                   .markedAsDone = done,
                                   .completionHandler = completion<History>(outcomes.completed())},
                                  context);
        return sent(answered_++);
    }
    std::string sentForProgress(const std::string& house, std::int64_t progress, bool isDone) {
        trelvo->updateVideoProgress({.showId = -1,
                                     .houseNumber = house,
                                     .progress = progress,
                                     .isDone = isDone,
                                     .completionHandler = completion<History>(outcomes.completed())},
                                    context);
        return sent(answered_++);
    }

private:
    std::size_t answered_ = 0;
};

TEST_F(TrelvoRecords, OfTheHistoryKeepTheOrderOfTheResponse) {
    const auto records = history(R"({"data":[)" + watched +
                                 R"(,"lastAccessed":"2024-03-01T10:00:00.123Z","source":"lumeno"},)" +
                                 watched + R"(,"source":"else","lastAccessed":"yesterday"}]})");
    ASSERT_TRUE(records);
    ASSERT_EQ(records->size(), 2U);
    EXPECT_EQ((*records)[0].progress, 95);
    EXPECT_TRUE((*records)[0].lastAccessed);
    EXPECT_EQ((*records)[0].source, SourceSystem::lumeno);
    EXPECT_FALSE((*records)[1].lastAccessed);
    EXPECT_FALSE((*records)[1].source);
}

TEST_F(TrelvoRecords, OfTheHistoryAreEmptyForAnEmptyListAndAnErrorForNoList) {
    const auto none = history(R"({"data":[]})");
    ASSERT_TRUE(none);
    EXPECT_TRUE(none->empty());
    const std::string broken =
        R"({"data":[)" + watched +
        R"(},{"uid":"u1","oid":"o","slug":"s","namespace":"n","key":"k","done":true}]})";
    for (const std::string& body :
         {std::string("{}"), std::string(R"({"data":null})"), std::string(R"({"data":{}})"), broken}) {
        const auto missing = history(body);
        ASSERT_FALSE(missing) << body;
        EXPECT_EQ(missing.error().errorDescription(), "Unable to retrieve history data") << body;
    }
}

TEST_F(TrelvoRecords, OfTheWatchlistKeepTheOrderOfTheResponse) {
    const auto records = watchlist(R"({"data":[)" + savedShow + R"(,"created":"2024-03-01T10:00:00.123Z"},)" +
                                   savedShow + R"(,"created":"2024"}]})");
    ASSERT_TRUE(records);
    ASSERT_EQ(records->size(), 2U);
    EXPECT_EQ((*records)[0].key, "42");
    EXPECT_TRUE((*records)[0].created);
    EXPECT_FALSE((*records)[1].created);
}

TEST_F(TrelvoRecords, OfTheWatchlistAreEmptyForAnEmptyListAndAnErrorForNoListAfterTheTokensAreKept) {
    const auto none = watchlist(R"({"data":[]})");
    ASSERT_TRUE(none);
    EXPECT_TRUE(none->empty());
    const std::string broken =
        R"("data":[)" + savedShow + R"(},{"oid":"o","slug":"s","namespace":"n","key":"k"}],)";
    int turn = 0;
    for (const std::string& data : {std::string(), std::string(R"("data":null,)"), broken}) {
        const std::string name = "rotated" + std::to_string(++turn);
        const auto missing = watchlist("{" + data + authMember(name, 3000) + "}");
        ASSERT_FALSE(missing) << data;
        EXPECT_EQ(missing.error().errorDescription(), "Unable to retrieve saved data") << data;
        EXPECT_EQ(saved(), "access-" + name);
    }
}

TEST_F(TrelvoRecords, OfTheHistoryFailDifferentlyForA404) {
    const auto failed = history("{}", 404);
    ASSERT_FALSE(failed);
    EXPECT_EQ(failed.error().kind(), TrelvoError::Kind::general);
}

TEST_F(TrelvoRecords, OfTheHistoryFailAsListRecentVideosIfThereIsNeitherATokenNorAnError) {
    trelvo->clearAuth();
    const Event returned = onItsOwnThread([this] {
        trelvo->viewingHistory({.limit = 7U, .completionHandler = completion<History>(outcomes.completed())},
                               context);
    });
    session->answer(0, reply(200, "{}"));
    ASSERT_TRUE(returned.wait());
    EXPECT_EQ(outcomes.only().text(),
              "Unknown error: In Trelvo.listRecentVideos(), no saved auth data and no authError found");
}

TEST_F(TrelvoRecords, OfRecentVideosAlwaysSendTheDoneFlag) {
    (void)history("{}");
    EXPECT_EQ(sent(0),
              "GET /v2/history/video/recent?UID=u1&slug=watchlist&source=lumeno&done=0&raw=1&limit=5 Bearer "
              "access-good");
}

TEST_F(TrelvoRecords, OfAShowSendTheDoneFlagOnlyIfGiven) {
    const std::string start = "GET /v2/history/show/7?UID=u1&slug=watchlist&source=lumeno&raw=1";
    EXPECT_EQ(sentForShow(7, std::nullopt), start + " Bearer access-good");
    EXPECT_EQ(sentForShow(7, true), start + "&done=1 Bearer access-good");
    EXPECT_EQ(sentForShow(7, false), start + "&done=0 Bearer access-good");
}

TEST_F(TrelvoRecords, OfProgressAreSentInPathAndQueryOnly) {
    const std::string end = "?UID=u1&source=lumeno&slug=watchlist&raw=1&done=";
    EXPECT_EQ(sentForProgress("ZW1", 0, true),
              "PATCH /v2/history/show/-1/video/ZW1/progress/0" + end + "1 Bearer access-good");
    EXPECT_EQ(sentForProgress("a b", -5, false),
              "PATCH /v2/history/show/-1/video/a%20b/progress/-5" + end + "0 Bearer access-good");
    EXPECT_EQ(session->request(0).httpBody(), std::nullopt);
}

TEST_F(TrelvoRecords, CanBeRequestedUpToTheMaximumLimit) {
    trelvo->viewingHistory({.limit = std::numeric_limits<std::uint64_t>::max(),
                            .completionHandler = completion<History>(outcomes.completed())},
                           context);
    EXPECT_NE(sent(0).find("&limit=18446744073709551615 "), std::string::npos) << sent(0);
}

}  // namespace
}  // namespace VanticRestKit::test
