// Many threads use one client whose tokens expire all the time.

#include <VanticRestKit/trelvo/detail/TrelvoProbe.h>

#include <trelvo/Client.h>
#include <trelvo/Operations.h>
#include <array>
#include <set>

namespace VanticRestKit::test {
namespace {

constexpr int threads = 32;
constexpr int callsEach = 34;

/// The rest of `text` after `start`, or empty if it does not begin with `start`.
std::string afterPrefix(const std::string& start, const std::string& text) {
    return text.starts_with(start) ? text.substr(start.size()) : "";
}

/// Whether all parts belong to one token set. The expiry is the number of the set.
bool isWhole(const Auth& auth) {
    const std::string name = afterPrefix("access-", auth.accessToken);
    return !name.empty() && afterPrefix("refresh-", auth.refreshToken) == name &&
           afterPrefix("type-", auth.tokenType) == name &&
           auth.expiry.time_since_epoch().count() == static_cast<double>(std::stoi(name));
}

/// A service whose tokens have expired when they arrive. It rejects some token requests, rotates tokens in data
/// responses, and records the tokens that it issues and receives. Runs on the session's queue.
class ExpiredTokenService {
public:
    Reply replyTo(const URLRequest& request) {
        const std::string shown = afterPrefix("Bearer ", request.value("Authorization").value_or(""));
        if (request.url()->path() == "/v2/token") {
            ++tokenRequests_;
            if (!shown.empty() && !issued_.contains(afterPrefix("refresh-", shown))) ++faults_;
            if (tokenRequests_ % 7 == 0) return reply(401, "");
            return reply(200, "{" + next() + "}");
        }
        ++dataRequests_;
        if (!issued_.contains(afterPrefix("access-", shown))) ++faults_;
        return reply(dataRequests_ % 11 == 0 ? 500 : 200, R"({"data":[],)" + next() + "}");
    }

    int faults() const { return faults_; }
    int dataRequests() const { return dataRequests_; }

private:
    std::string next() {
        const std::string name = std::to_string(++last_);
        issued_.insert(name);
        return authMember(name, last_);
    }

    std::set<std::string> issued_;
    int last_ = 0;
    int tokenRequests_ = 0;
    int dataRequests_ = 0;
    int faults_ = 0;
};

class TrelvoThreads : public ::testing::Test {
protected:
    /// Calls all operations in turn, and checks the tokens after each.
    void callOperations(int thread) {
        UserContext context;
        context.session = session;
        for (int call = 0; call < callsEach; ++call) {
            const auto turn = static_cast<std::size_t>(thread + call);
            operations()[turn % operations().size()].run(
                *trelvo, context, [this, thread, call](const Outcome&) {
                    ++completions[static_cast<std::size_t>(thread * callsEach + call)];
                    completed.signal();
                });
            if (thread == 0) trelvo->clearAuth();
            const std::optional<Auth> auth = trelvo->auth();
            if (auth && !isWhole(*auth)) ++torn;
            if (const auto error = trelvo->authError()) {
                if (!(*error == TrelvoError::accountReconsentRequired())) ++torn;
            }
        }
    }

    ExpiredTokenService service;
    std::shared_ptr<ScriptedSession> session = std::make_shared<ScriptedSession>(
        [this](const URLRequest& request) { return service.replyTo(request); });
    std::unique_ptr<Trelvo> trelvo{new Trelvo(TrelvoProbe::make([] { return 1e9; }))};
    std::array<std::atomic<int>, threads * callsEach> completions{};
    std::atomic<int> torn{0};
    Event completed;
};

TEST_F(TrelvoThreads, EachGetATokenForTheirCallAndExactlyOneOutcome) {
    std::vector<std::thread> callers;
    for (int thread = 0; thread < threads; ++thread) {
        callers.emplace_back([this, thread] { callOperations(thread); });
    }
    for (std::thread& caller : callers) caller.join();
    ASSERT_TRUE(completed.wait(threads * callsEach));
    // A block on the session's queue runs after all responses, so nothing can follow it.
    const Event flushed;
    session->queue().async([flushed] { flushed.signal(); });
    ASSERT_TRUE(flushed.wait());
    for (const std::atomic<int>& count : completions) EXPECT_EQ(count.load(), 1);
    EXPECT_EQ(torn.load(), 0);
    EXPECT_EQ(service.faults(), 0) << "every token that was sent had been issued";
    EXPECT_GT(service.dataRequests(), threads);
    EXPECT_TRUE(!trelvo->auth() || isWhole(*trelvo->auth()));
}

}  // namespace
}  // namespace VanticRestKit::test
