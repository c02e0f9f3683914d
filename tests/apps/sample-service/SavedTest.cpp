#include "UserClient.h"

namespace VanticRestKit::test {

namespace {

using List = std::vector<std::string>;

TEST(SampleSaved, ShowsAreListedInTheOrderOfSaving) {
    const SampleService service;
    UserClient ann(service, "ann");
    auto added = ann.ask("POST", "saved/watchlist/show/42", "&raw=1")["data"];
    ASSERT_EQ(added.size(), 1U);
    EXPECT_EQ(added[0]["created"].get<std::string>().size(),
              std::string("2026-11-21T04:22:00.123+0000").size());
    EXPECT_EQ(added[0]["updated"], added[0]["created"]);
    for (const char* key : {"oid", "created", "updated"}) added[0].erase(key);
    EXPECT_EQ(added[0], nlohmann::json::parse(R"({"source":"lumeno","slug":"watchlist","namespace":"show",
                                                  "key":"42","order":0})"));
    ann.ask("POST", "saved/watchlist/show/7");
    const auto list = ann.ask("GET", "saved/watchlist/show")["data"];
    EXPECT_EQ(column(list, "key"), (List{"42", "7"}));
    EXPECT_EQ(column(list, "order"), (std::vector<int>{0, 1}));
}

TEST(SampleSaved, AShowSavedTwiceIsListedOnce) {
    const SampleService service;
    UserClient ann(service, "ann");
    const auto first = ann.ask("POST", "saved/watchlist/show/42")["data"];
    ann.ask("POST", "saved/watchlist/show/7");
    EXPECT_EQ(ann.ask("POST", "saved/watchlist/show/42")["data"], first);
    EXPECT_EQ(service.control("GET", "/_control/users")["ann"]["saved"].size(), 2U);
}

TEST(SampleSaved, ListsAreSeparatedBySlug) {
    const SampleService service;
    UserClient ann(service, "ann");
    ann.ask("POST", "saved/watchlist/show/42");
    ann.ask("POST", "saved/later/show/7");
    EXPECT_EQ(column(ann.ask("GET", "saved/later/show")["data"], "key"), List{"7"});
    EXPECT_EQ(column(ann.ask("GET", "saved")["data"], "key"), (List{"42", "7"}));
    ann.ask("DELETE", "saved/later");
    EXPECT_EQ(column(ann.ask("GET", "saved")["data"], "key"), List{"42"});
    ann.ask("DELETE", "saved");
    EXPECT_EQ(ann.ask("GET", "saved")["data"], nlohmann::json::array());
}

TEST(SampleSaved, AShowCanBeRemovedOnceAndAListRepeatedly) {
    const SampleService service;
    UserClient ann(service, "ann");
    ann.ask("POST", "saved/watchlist/show/42");
    ann.ask("DELETE", "saved/watchlist/show/42");
    EXPECT_EQ(ann.status, 200);
    ann.ask("DELETE", "saved/watchlist/show/42");
    EXPECT_EQ(ann.status, 404);
    ann.ask("DELETE", "saved/watchlist");
    EXPECT_EQ(ann.status, 200);
}

TEST(SampleSaved, AShowIsIdentifiedByAnInteger) {
    const SampleService service;
    UserClient ann(service, "ann");
    for (const char* id : {"harbour-lights", "12x", "1.5", "99999999999999999999"}) {
        ann.ask("POST", std::string("saved/watchlist/show/") + id);
        EXPECT_EQ(ann.status, 400) << id;
    }
    ann.ask("POST", "saved");
    EXPECT_EQ(ann.status, 405);
}

}  // namespace

}  // namespace VanticRestKit::test
