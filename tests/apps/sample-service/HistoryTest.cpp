#include "UserClient.h"

namespace VanticRestKit::test {

namespace {

/// A user who has watched three videos of two shows, one of them to the end.
class SampleHistory : public ::testing::Test {
protected:
    SampleHistory() {
        watch("11", "HL0101", "2760", "&done=1");
        watch("11", "HL0102", "60", "&done=0");
        watch("12", "QO0101", "30", "");
    }
    nlohmann::json watch(const std::string& show, const std::string& houseNumber, const std::string& seconds,
                         const std::string& query) {
        return ann.ask("PATCH", "history/show/" + show + "/video/" + houseNumber + "/progress/" + seconds,
                       "&slug=watchlist" + query)["data"];
    }
    nlohmann::json keys(const std::string& path, const std::string& query = {}) {
        return column(ann.ask("GET", "history/" + path, "&slug=watchlist" + query)["data"], "key");
    }

    using List = std::vector<std::string>;
    SampleService service;
    UserClient ann{service, "ann"};
};

TEST_F(SampleHistory, RecordsContainUserVideoAndProgress) {
    auto record = watch("11", "HL0103", "99", "&done=0")[0];
    const std::string accessed = record["lastAccessed"];
    EXPECT_EQ(accessed.size(), std::string("2026-11-21T04:22:00.123+0000").size()) << accessed;
    EXPECT_TRUE(accessed.ends_with("+0000")) << accessed;
    record.erase("oid");
    record.erase("lastAccessed");
    EXPECT_EQ(record,
              nlohmann::json::parse(R"({"source":"lumeno","uid":"ann","slug":"watchlist","namespace":"video",
                                                "key":"HL0103","progress":99,"done":false})"));
}

TEST_F(SampleHistory, ListsTheLastWatchedFirst) {
    EXPECT_EQ(keys("video"), (List{"QO0101", "HL0102", "HL0101"}));
    watch("11", "HL0101", "5", "");
    EXPECT_EQ(keys("video"), (List{"HL0101", "QO0101", "HL0102"}));
}

TEST_F(SampleHistory, ListsUpToALimit) {
    EXPECT_EQ(keys("video", "&limit=2"), (List{"QO0101", "HL0102"}));
    EXPECT_EQ(keys("video", "&limit=0"), List{});
    EXPECT_EQ(keys("video/recent", "&done=0&limit=1"), List{"QO0101"});
}

TEST_F(SampleHistory, CanBeFilteredByDone) {
    EXPECT_EQ(keys("video/recent", "&done=1"), List{"HL0101"});
    EXPECT_EQ(keys("video/recent", "&done=0"), (List{"QO0101", "HL0102"}));
    EXPECT_EQ(keys("show/11"), (List{"HL0102", "HL0101"}));
    EXPECT_EQ(keys("show/11", "&done=1"), List{"HL0101"});
}

TEST_F(SampleHistory, OfOneVideoHasOneRecordOrNone) {
    EXPECT_EQ(keys("show/11/video/HL0102"), List{"HL0102"});
    EXPECT_EQ(keys("show/11/video/HL0103"), List{});
    EXPECT_EQ(ann.status, 200);
    EXPECT_EQ(keys("show/12/video/HL0102"), List{}) << "it belongs to another show";
}

TEST_F(SampleHistory, KeepsOneRecordPerVideo) {
    const auto before = ann.ask("GET", "history/show/11/video/HL0102", "&slug=watchlist")["data"][0];
    const auto after = watch("11", "HL0102", "61", "&done=1")[0];
    EXPECT_EQ(after["oid"], before["oid"]);
    EXPECT_EQ(after["progress"], 61);
    EXPECT_EQ(after["done"], true);
    EXPECT_EQ(service.control("GET", "/_control/users")["ann"]["history"].size(), 3U);
}

TEST_F(SampleHistory, IsDeletedBySlugAndIsThenA404) {
    ann.ask("DELETE", "history", "&slug=other");
    EXPECT_EQ(ann.status, 404);
    ann.ask("DELETE", "history", "&slug=watchlist");
    EXPECT_EQ(ann.status, 200);
    EXPECT_EQ(service.control("GET", "/_control/users")["ann"]["history"], nlohmann::json::array());
    ann.ask("DELETE", "history", "&slug=watchlist");
    EXPECT_EQ(ann.status, 404);
}

TEST_F(SampleHistory, InvalidRequestsAreA400) {
    for (const char* path : {"history/show/x", "history/show/x/video/H"}) {
        ann.ask("GET", path, "&slug=watchlist");
        EXPECT_EQ(ann.status, 400) << path;
    }
    for (const char* query : {"", "&slug=watchlist&done=yes", "&slug=watchlist&limit=-1",
                              "&slug=watchlist&limit=2x", "&slug=watchlist&limit="}) {
        ann.ask("GET", "history/video", query);
        EXPECT_EQ(ann.status, 400) << query;
    }
    for (const char* seconds : {"-1", "half", "1.5"}) {
        watch("11", "HL0101", seconds, "");
        EXPECT_EQ(ann.status, 400) << seconds;
    }
    watch("11x", "HL0101", "1", "");
    EXPECT_EQ(ann.status, 400);
    ann.ask("PATCH", "history/show/11/video/HL0101/progress/1");
    EXPECT_EQ(ann.status, 400);
}

TEST_F(SampleHistory, IsSeparateForEachUser) {
    UserClient bob(service, "bob");
    EXPECT_EQ(bob.ask("GET", "history/video", "&slug=watchlist")["data"], nlohmann::json::array());
}

}  // namespace

}  // namespace VanticRestKit::test
