// The reports that an observer gets on the operations of a user.

#include "UserService.h"

#include <VanticRestKit/trelvo/UserClient.h>

#include <Core/RecordingObserver.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace VanticRestKit::test {

namespace {

class UserObserver : public ::testing::Test {
protected:
    /// The requests so far as "status path", with the attempt number after the first attempt.
    std::vector<std::string> seen() const {
        std::vector<std::string> texts;
        for (const RequestMetrics& request : context->recorder->requests()) {
            const std::string path = request.url.substr(service.baseURL().size() + 1);
            std::string text =
                std::to_string(request.status.value_or(0)) + " " + path.substr(0, path.find('?'));
            if (request.attempt > 1) text += " " + std::to_string(request.attempt);
            texts.push_back(std::move(text));
        }
        return texts;
    }
    bool sawSecret() const {
        const auto requests = context->recorder->requests();
        return std::any_of(requests.begin(), requests.end(), [](const RequestMetrics& request) {
            return request.url.find("ann") != std::string::npos;
        });
    }
    static constexpr const char* saved = "v2/saved/watchlist/show";

    SampleService service;
    std::shared_ptr<Observed<UserContext>> context =
        std::make_shared<Observed<UserContext>>(service.baseURL());
};

TEST_F(UserObserver, SeesTheTokenRequestAndTheDataRequestOfAnOperation) {
    Trelvo client = newClient();
    EXPECT_TRUE(User(client, *context).saved());
    EXPECT_EQ(seen(), (std::vector<std::string>{"200 v2/token", std::string("200 ") + saved}));
    EXPECT_FALSE(sawSecret());
}

TEST_F(UserObserver, SeesTheRequestsOfAUserClientIncludingTheRetryAfterARejection) {
    const auto client = UserClient::make(context);
    EXPECT_TRUE(client->listWatchlistShowIds().wait());
    service.control("POST", "/_control/tokens/expire");
    EXPECT_TRUE(client->listWatchlistShowIds().wait());
    EXPECT_EQ(seen(), (std::vector<std::string>{"200 v2/token", std::string("200 ") + saved,
                                                std::string("401 ") + saved, "200 v2/token",
                                                std::string("200 ") + saved + " 2"}));
    EXPECT_FALSE(sawSecret());
}

TEST_F(UserObserver, SeesAResponseThatCannotBeDecoded) {
    service.addFault({{"path", saved}, {"fault", "malformed"}});
    EXPECT_FALSE(UserClient::make(context)->listWatchlistShowIds().wait());
    const auto failures = context->recorder->failures();
    ASSERT_EQ(failures.size(), 1U);
    EXPECT_EQ(failures[0].typeName, "SavedResponse");
    EXPECT_GT(failures[0].bodySize, 0U);
    EXPECT_FALSE(failures[0].body);
}

}  // namespace
}  // namespace VanticRestKit::test
