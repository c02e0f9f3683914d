// What operations on user data send, and how they handle token services that fail.

#include <VanticRestKit/platform/http/URLSession.h>

#include <support/FaultServer.h>
#include <support/Sockets.h>
#include <trelvo/Client.h>
#include <trelvo/Operations.h>

namespace VanticRestKit::test {
namespace {

using Kind = TrelvoError::Kind;
using Headers = std::map<std::string, std::string>;

std::string http(int status, const std::string& body) { return answer(status, std::string_view(body)); }

std::string tokenAnswer(const std::string& name, double expiry = 2000) {
    return http(200, "{" + authMember(name, expiry) + "}");
}

/// A server of user data. Each token request is answered with the next reply of a list, and each data request with an
/// empty list.
class UserServer {
    void serve(FaultConnection& connection) {
        while (const auto request = connection.readRequest()) {
            const std::string reply = replyTo(request->target);
            // An empty reply stands for a service that keeps its client waiting.
            if (reply.empty()) connection.stall();
            if (reply.empty() || !connection.send(reply)) return;
        }
    }
    std::string replyTo(const std::string& target) {
        if (target.find("/v2/token?") == std::string::npos) return http(200, R"({"data":[]})");
        const std::lock_guard lock(mutex_);
        return next_ < tokenReplies_.size() ? tokenReplies_[next_++] : http(500, "");
    }

    std::mutex mutex_;
    const std::vector<std::string> tokenReplies_;
    std::size_t next_ = 0;

public:
    explicit UserServer(std::vector<std::string> tokenReplies) : tokenReplies_(std::move(tokenReplies)) {}

    // The last member, so that its threads end before the members that they use are destroyed.
    FaultServer server{[this](FaultConnection& connection) { serve(connection); }};
};

class Wire : public Client {
protected:
    Wire() { context.session = networkSession(URLSession::make(URLSessionConfiguration())); }

    void use(const UserServer& user) { context.base = user.server.url(""); }
    /// The outcome of an operation. Waits for it.
    Outcome outcomeOf(const Operation& operation) {
        const Outcomes of;
        const Event completed;
        operation.run(*trelvo, context, [into = of.completed(), completed](Outcome outcome) mutable {
            into(std::move(outcome));
            completed.signal();
        });
        EXPECT_TRUE(completed.wait());
        return of.only();
    }
    Outcome listed() { return outcomeOf(list); }

    static const Operation& named(const std::string& name) {
        for (const Operation& operation : operations()) {
            if (operation.name == name) return operation;
        }
        std::abort();
    }

    const Operation& list = named("listWatchlistShowIds");
};

class TrelvoWireOperation : public Wire, public ::testing::WithParamInterface<Operation> {};

INSTANTIATE_TEST_SUITE_P(Every, TrelvoWireOperation, ::testing::ValuesIn(operations()),
                         [](const auto& each) { return each.param.name; });

/// Removes the headers that the session adds to every request, and those of the host.
Headers withoutOrdinary(Headers headers) {
    for (const char* const name : {"host", "accept", "accept-encoding", "user-agent", "content-length"})
        headers.erase(name);
    return headers;
}

TEST_P(TrelvoWireOperation, SendsOnlyATokenRequestAndThenItsOwn) {
    UserServer user({tokenAnswer("new")});
    use(user);
    context.headers = {{"X-Host", "1"}};
    (void)outcomeOf(GetParam());
    const std::vector<RawRequest> requests = user.server.requests();
    ASSERT_EQ(requests.size(), 2U);
    EXPECT_EQ(requests[0].method + " " + requests[0].target, "GET /v2/token?UID=u1&source=lumeno");
    EXPECT_EQ(withoutOrdinary(requests[0].headers), (Headers{{"x-host", "1"}}));
    EXPECT_EQ(requests[0].body, "");
    EXPECT_EQ(requests[1].method + " " + requests[1].target, GetParam().method + " " + GetParam().target);
    EXPECT_EQ(withoutOrdinary(requests[1].headers),
              (Headers{{"x-host", "1"},
                       {"authorization", "Bearer access-new"},
                       {"content-type", "application/x-www-form-urlencoded"}}));
    EXPECT_EQ(requests[1].body, GetParam().body);
}

TEST_P(TrelvoWireOperation, RefreshesWithItsRefreshTokenInAGetWithoutABody) {
    UserServer user({tokenAnswer("new")});
    use(user);
    save("old", 1000);
    context.headers = {{"Authorization", "Basic host"}, {"Content-Type", "text/plain"}};
    (void)outcomeOf(GetParam());
    const std::vector<RawRequest> requests = user.server.requests();
    ASSERT_EQ(requests.size(), 2U);
    EXPECT_EQ(requests[0].method, "GET");
    EXPECT_EQ(requests[0].body, "");
    EXPECT_EQ(withoutOrdinary(requests[0].headers),
              (Headers{{"authorization", "Bearer refresh-old"},
                       {"content-type", "application/x-www-form-urlencoded"}}));
    EXPECT_EQ(requests[1].header("authorization"), "Bearer access-new");
    EXPECT_EQ(requests[1].header("content-type"), "application/x-www-form-urlencoded");
}

using TrelvoWire = Wire;

TEST_F(TrelvoWire, SendsNothingIfNoUserIsSignedIn) {
    UserServer user({});
    use(user);
    saveGoodTokens();
    context.user = std::nullopt;
    for (const Operation& operation : operations()) {
        EXPECT_TRUE(outcomeOf(operation).is(Kind::noUid)) << operation.name;
    }
    trelvo->deleteSubprofile({.completionHandler = completion<void>(outcomes.completed())}, context);
    EXPECT_TRUE(outcomes.only().is(Kind::noUid));
    EXPECT_EQ(context.tokenRequests + context.dataRequests, 0);
    context.user = "u1";
    EXPECT_EQ(listed().text(), "success");
    EXPECT_EQ(user.server.connectionCount(), 1U);
    EXPECT_EQ(user.server.requests().size(), 1U);
}

TEST_F(TrelvoWire, HasNoTokenWhileTheTokenServiceIsDown) {
    context.base = "http://127.0.0.1:" + std::to_string(unusedPort());
    const Outcome outcome = listed();
    EXPECT_TRUE(outcome.is(Kind::noAuthToken));
    EXPECT_EQ(outcome.loaderError().kind(), LoaderError::Kind::serverError);
    EXPECT_EQ(outcome.code(), -1004);
    EXPECT_EQ(context.tokenRequests, 1);
    EXPECT_EQ(context.dataRequests, 0);
    UserServer user({tokenAnswer("new")});
    use(user);
    EXPECT_EQ(listed().text(), "success");
    EXPECT_EQ(savedError(), "none");
}

TEST_F(TrelvoWire, ReportsMissingConsentUntilTheTokenServiceAccepts) {
    UserServer user({http(401, "{}"), http(401, ""), tokenAnswer("new")});
    use(user);
    EXPECT_TRUE(listed().is(Kind::accountReconsentRequired));
    EXPECT_TRUE(listed().is(Kind::accountReconsentRequired));
    EXPECT_EQ(listed().text(), "success");
    EXPECT_EQ(user.server.requests().size(), 4U);
    EXPECT_FALSE(user.server.requests()[1].has("authorization"));
}

TEST_F(TrelvoWire, HasNoTokenIfTheTokenServiceFails) {
    UserServer user({http(403, "{}"), http(500, ""), tokenAnswer("new")});
    use(user);
    for (const std::int64_t status : {403, 500}) {
        const Outcome outcome = listed();
        EXPECT_TRUE(outcome.is(Kind::noAuthToken));
        EXPECT_EQ(outcome.code(), status);
    }
    EXPECT_EQ(listed().text(), "success");
}

TEST_F(TrelvoWire, HasNoTokenIfTheTokenServiceSendsInvalidResponses) {
    UserServer user(
        {http(200, "<html>"), http(200, ""), http(200, "{}"), "nonsense\r\n\r\n", tokenAnswer("new")});
    use(user);
    for (int turn = 0; turn < 2; ++turn) {
        const Outcome outcome = listed();
        EXPECT_TRUE(outcome.is(Kind::noAuthToken));
        EXPECT_EQ(outcome.loaderError().kind(), LoaderError::Kind::failedToDecode);
    }
    EXPECT_TRUE(listed().is(Kind::noAuthToken)) << "the error of the last failure is kept";
    trelvo->clearAuth();
    const Outcome outcome = listed();
    EXPECT_TRUE(outcome.is(Kind::noAuthToken));
    EXPECT_EQ(outcome.loaderError().kind(), LoaderError::Kind::serverError);
    EXPECT_LT(outcome.code(), 0) << "a transport error";
    EXPECT_EQ(listed().text(), "success");
}

TEST_F(TrelvoWire, WaitsForALateTokenServiceUntilTheTimeoutOfTheContext) {
    UserServer user({"", tokenAnswer("new")});
    use(user);
    context.timeout = 0.2;
    const Outcome outcome = listed();
    EXPECT_TRUE(outcome.is(Kind::noAuthToken));
    EXPECT_EQ(outcome.code(), -1001);
    EXPECT_EQ(outcome.thread, std::this_thread::get_id()) << "before the call returns";
    context.timeout = 30;
    EXPECT_EQ(listed().text(), "success");
}

TEST_F(TrelvoWire, ContinuesWithAnOldTokenWhateverTheTokenServiceDoes) {
    UserServer user({http(401, ""), http(500, ""), http(200, "nonsense"), http(200, "{}")});
    use(user);
    save("old", 900);
    for (std::size_t turn = 0; turn < 4; ++turn) {
        EXPECT_EQ(listed().text(), "success");
        const RawRequest request = user.server.requests().at(2 * turn + 1);
        EXPECT_EQ(request.header("authorization"), "Bearer access-old");
    }
    EXPECT_EQ(user.server.requests().size(), 8U);
}

}  // namespace
}  // namespace VanticRestKit::test
