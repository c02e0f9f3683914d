// Every operation of a user client sends the same request and handles responses in the same way as that of `Trelvo`.

#include <trelvo/Operations.h>
#include <trelvo/UserClientFixture.h>
#include <algorithm>
#include <map>

namespace VanticRestKit::test {
namespace {

using Start = std::function<Cancellable(const UserClient&, Completed)>;

template <class Call>
Cancellable started(const Call& call, Completed done) {
    return call.start({}, completion<typename Call::Outcome::value_type>(std::move(done)));
}

Dictionary named() { return {{"displayName", "A & B"}}; }

/// How a user client starts the public operations.
const std::map<std::string, Start>& starts() {
    static const auto& all = *new std::map<std::string, Start>{
        {"getSubprofiles",
         [](const UserClient& client, Completed done) {
             return started(client.getSubprofiles({.includePrivateData = true, .includeFamilyData = true}),
                            std::move(done));
         }},
        {"createSubprofile",
         [](const UserClient& client, Completed done) {
             return started(client.createSubprofile({.dataset = named()}), std::move(done));
         }},
        {"updateSubprofile",
         [](const UserClient& client, Completed done) {
             return started(client.updateSubprofile({.dataset = named()}), std::move(done));
         }},
        {"deleteHistory", [](const UserClient& client,
                             Completed done) { return started(client.deleteHistory(), std::move(done)); }},
        {"viewingHistory",
         [](const UserClient& client, Completed done) {
             return started(client.viewingHistory({.limit = 7U}), std::move(done));
         }},
        {"listRecentVideos",
         [](const UserClient& client, Completed done) {
             return started(client.listRecentVideos({.limit = 7U, .markedAsDone = true}), std::move(done));
         }},
        {"listVideosForShow",
         [](const UserClient& client, Completed done) {
             return started(client.listVideosForShow({.showId = 42, .markedAsDone = true}), std::move(done));
         }},
        {"getVideoProgress",
         [](const UserClient& client, Completed done) {
             return started(client.getVideoProgress({.showId = 42, .houseNumber = "ZW1"}), std::move(done));
         }},
        {"updateVideoProgress",
         [](const UserClient& client, Completed done) {
             return started(client.updateVideoProgress(
                                {.showId = 42, .houseNumber = "ZW1", .progress = 95, .isDone = false}),
                            std::move(done));
         }},
        {"listWatchlistShowIds",
         [](const UserClient& client, Completed done) {
             return started(client.listWatchlistShowIds(), std::move(done));
         }},
        {"addWatchlistShow",
         [](const UserClient& client, Completed done) {
             return started(client.addWatchlistShow({.showId = 42}), std::move(done));
         }},
        {"deleteShow",
         [](const UserClient& client, Completed done) {
             return started(client.deleteShow({.showId = 42}), std::move(done));
         }},
    };
    return all;
}

/// The operations of `Trelvo` that a user client also has.
std::vector<Operation> shared() {
    std::vector<Operation> found;
    for (const Operation& each : operations()) {
        if (starts().contains(each.name)) found.push_back(each);
    }
    return found;
}

class UserClientOperation : public UserClientFixture, public ::testing::WithParamInterface<Operation> {
protected:
    void SetUp() override {
        save("good", 2000);
        handles.push_back(starts().at(GetParam().name)(*client, outcomes.completed()));
    }
    Outcome outcomeOf(Reply reply) {
        answer(0, std::move(reply));
        return only();
    }
};

INSTANTIATE_TEST_SUITE_P(Every, UserClientOperation, ::testing::ValuesIn(shared()),
                         [](const auto& each) { return each.param.name; });

TEST(UserClientOperations, IncludeEveryPublicOperation) { EXPECT_EQ(shared().size(), starts().size()); }

TEST_P(UserClientOperation, SendsOnlyItsRequestWithTheAccessToken) {
    EXPECT_EQ(sent(0), GetParam().method + " " + GetParam().target + " Bearer access-good");
    const URLRequest request = session->request(0);
    EXPECT_EQ(request.allHTTPHeaderFields(),
              (std::map<std::string, std::string>{{"Authorization", "Bearer access-good"},
                                                  {"Content-Type", "application/x-www-form-urlencoded"}}));
    const std::optional<Data> body = request.httpBody();
    EXPECT_EQ(body.has_value(), !GetParam().body.empty());
    EXPECT_EQ(body ? body->view() : "", GetParam().body);
}

TEST_P(UserClientOperation, KeepsOrIgnoresTheTokensOfItsResponse) {
    const std::string data = GetParam().good.empty() ? "" : GetParam().good + ",";
    EXPECT_EQ(outcomeOf(reply(200, "{" + data + authMember("rotated", 3000) + "}")).text(), "success");
    EXPECT_EQ(held(), GetParam().keepsTokens ? "access-rotated" : "access-good");
}

TEST_P(UserClientOperation, HandlesAnEmptyResponse) {
    const Outcome outcome = outcomeOf(reply(200, "{}"));
    if (GetParam().emptyAnswer) {
        EXPECT_TRUE(outcome.is(*GetParam().emptyAnswer)) << outcome;
    } else {
        EXPECT_EQ(outcome.text(), "success");
    }
}

TEST_P(UserClientOperation, HandlesA404) {
    const Outcome outcome = outcomeOf(reply(404, ""));
    if (GetParam().notFound) {
        EXPECT_TRUE(outcome.is(*GetParam().notFound)) << outcome;
    } else {
        EXPECT_EQ(outcome.text(), "success");
    }
}

TEST_P(UserClientOperation, FailsAsGeneralOtherwise) {
    const Outcome outcome = outcomeOf(reply(500, ""));
    EXPECT_TRUE(outcome.is(TrelvoError::Kind::general)) << outcome;
    EXPECT_EQ(outcome.code(), 500);
}

class UserClientDeleteSubprofile : public UserClientFixture {
protected:
    void start() {
        handles.push_back(client->deleteSubprofile().start({}, completion<void>(outcomes.completed())));
    }
    /// The three data requests from number `first`.
    std::vector<std::string> three(std::size_t first) {
        return {sent(first), sent(first + 1), sent(first + 2)};
    }
    static std::vector<std::string> expected(const std::string& token) {
        const std::string end = "?UID=u1&source=lumeno";
        return {"DELETE /v2/history" + end + "&slug=watchlist Bearer " + token,
                "DELETE /v2/saved/watchlist" + end + " Bearer " + token,
                "DELETE /v2/dataset/profile" + end + " Bearer " + token};
    }
};

TEST_F(UserClientDeleteSubprofile, DeletesHistoryWatchlistAndProfileWithoutWaitingInBetween) {
    save("good", 2000);
    start();
    EXPECT_EQ(three(0), expected("access-good"));
    answer(0, reply(500, ""));
    answer(1, reply(500, ""));
    EXPECT_EQ(outcomes.count(), 0U);
    answer(2, reply(200, "{}"));
    EXPECT_EQ(only().text(), "success");
}

TEST_F(UserClientDeleteSubprofile, RequestsOneToken) {
    start();
    answer(0, tokenReply("new", 2000));
    EXPECT_EQ(three(1), expected("access-new"));
}

TEST_F(UserClientDeleteSubprofile, ContinuesTheOthersWhenTheProfileIsDeleted) {
    save("good", 2000);
    start();
    answer(2, reply(404, ""));
    EXPECT_EQ(only().code(), 404);
    handles.clear();
    drain();
    EXPECT_FALSE(session->isCancelled(0));
    answer(0, reply(200, "{" + authMember("rotated", 3000) + "}"));
    EXPECT_EQ(held(), "access-rotated");
}

TEST_F(UserClientDeleteSubprofile, CancelsAllThree) {
    save("good", 2000);
    start();
    EXPECT_EQ(sentCount(), 3U);
    handles[0].cancel();
    EXPECT_TRUE(isCancelled(only()));
    for (std::size_t i = 0; i < 3; ++i) EXPECT_TRUE(session->awaitCancel(i));
}

}  // namespace
}  // namespace VanticRestKit::test
