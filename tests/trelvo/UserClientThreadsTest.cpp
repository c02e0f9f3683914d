// Many threads use one user client: they start, cancel and drop operations while users change and tokens are rejected.

#include <trelvo/UserClientFixture.h>
#include <array>
#include <chrono>

namespace VanticRestKit::test {
namespace {

using namespace std::chrono_literals;

constexpr int threads = 32;
constexpr int callsEach = 40;

/// Whether `text` begins with `start`.
bool begins(const std::string& text, const std::string& start) { return text.starts_with(start); }

/// A service whose tokens contain their user. It rejects some requests of every kind, and counts tokens of the wrong
/// user. Runs on the session's queue.
class StrictService {
public:
    Reply replyTo(const URLRequest& request) {
        const std::string user = userOf(*request.url());
        const std::string shown = request.value("Authorization").value_or("");
        ++requests_;
        if (request.url()->path() == "/v2/token") {
            if (!shown.empty() && !begins(shown, "Bearer refresh-" + user)) ++faults_;
            if (requests_ % 13 == 0) return reply(500, "");
            return reply(200, "{" + next(user) + "}");
        }
        if (!begins(shown, "Bearer access-" + user)) ++faults_;
        if (requests_ % 5 == 0) return reply(401, "");
        return reply(200, R"({"data":[],)" + next(user) + "}");
    }
    int faults() const { return faults_; }

private:
    static std::string userOf(const URL& url) {
        const std::string address = url.absoluteString();
        const std::size_t at = address.find("UID=") + 4;
        return address.substr(at, address.find('&', at) - at);
    }
    std::string next(const std::string& user) {
        ++last_;
        return authMember(user + "-" + std::to_string(last_), last_ % 3 == 0 ? 900 : 2000);
    }

    int requests_ = 0;
    int last_ = 0;
    int faults_ = 0;
};

/// Returns one of two users, which any thread can change.
class SharedContext final : public UserContext {
public:
    std::optional<std::string> uid() const override { return isOther ? "u2" : "u1"; }
    /// Does not count requests, since the counters are for one thread.
    std::optional<URLRequest> generateURLRequest(URLRequestArguments arguments) const override {
        return TrelvoContext::generateURLRequest(std::move(arguments));
    }

    std::atomic<bool> isOther{false};
};

class UserClientThreads : public ::testing::Test {
protected:
    UserClientThreads() { context->session = session; }

    void callOperations(int thread) {
        for (int call = 0; call < callsEach; ++call) {
            const auto index = static_cast<std::size_t>(thread * callsEach + call);
            LoadOptions options;
            if (call % 7 == 3) options.deadline = 1ms;
            Cancellable handle = client->listWatchlistShowIds().start(
                std::move(options), [this, index](const Result<std::vector<SavedData>, TrelvoError>&) {
                    ++completions[index];
                    completed.signal();
                });
            if (call % 3 == 1) handle.cancel();
            handle.detach();
            // A dropped operation has no outcome, or had it before.
            const Cancellable dropped =
                client->deleteHistory().start({}, [](const Result<void, TrelvoError>&) {});
            if (thread == 0 && call % 10 == 5) context->isOther = !context->isOther;
            if (thread == 1 && call % 10 == 7) client->signOut();
            if (thread == 2 && call % 10 == 9) client->setAuth(client->auth());
            const std::optional<UserAuth> auth = client->auth();
            if (auth && !begins(auth->auth.accessToken, "access-" + auth->uid)) ++mixed;
        }
    }

    StrictService service;
    std::shared_ptr<ScriptedSession> session = std::make_shared<ScriptedSession>(
        [this](const URLRequest& request) { return service.replyTo(request); });
    std::shared_ptr<SharedContext> context = std::make_shared<SharedContext>();
    std::shared_ptr<UserClient> client = UserClientProbe::make(context, [] { return 1000.0; });
    std::array<std::atomic<int>, threads * callsEach> completions{};
    std::atomic<int> mixed{0};
    Event completed;
};

TEST_F(UserClientThreads, EachGetOneOutcomeAndNeverTheTokensOfAnotherUser) {
    const Cancellable states = client->signInState().sink([](SignInState) {});
    std::vector<std::thread> callers;
    for (int thread = 0; thread < threads; ++thread) {
        callers.emplace_back([this, thread] { callOperations(thread); });
    }
    for (std::thread& caller : callers) caller.join();
    ASSERT_TRUE(completed.wait(threads * callsEach));
    // Anything still pending passes through these queues, in this order.
    const auto& clientSession = UserClientProbe::session(*client);
    for (const DispatchQueue& queue : {session->queue(), clientSession.queue(), session->queue(),
                                       clientSession.queue(), clientSession.deliveries()}) {
        const Event flushed;
        queue.async([flushed] { flushed.signal(); });
        ASSERT_TRUE(flushed.wait());
    }
    for (const std::atomic<int>& count : completions) EXPECT_EQ(count.load(), 1);
    EXPECT_EQ(mixed.load(), 0);
    EXPECT_EQ(service.faults(), 0) << "no token was sent for another user";
}

}  // namespace
}  // namespace VanticRestKit::test
