#pragma once

/// \file
/// A client of the user data service with a clock and a transport in the hands of the test.

#include <VanticRestKit/platform/dispatch/detail/Probes.h>
#include <VanticRestKit/trelvo/detail/TrelvoProbe.h>

#include <trelvo/Outcomes.h>
#include <trelvo/UserContext.h>
#include <atomic>
#include <string>
#include <utility>

namespace VanticRestKit::test {

/// The groups that operations wait for, in the order of their waiting.
class Waits {
public:
    void add(const DispatchGroup& group) {
        const std::lock_guard lock(mutex_);
        groups_.push_back(group);
        added_.signal();
    }

    /// Group number `index`, counted from 0, once somebody waits for it. Fails the running test where nobody
    /// does.
    DispatchGroup awaited(std::size_t index) {
        EXPECT_TRUE(added_.wait(static_cast<int>(index) + 1)) << "no operation waits";
        const DispatchGroup group = at(index);
        EXPECT_TRUE(detail::GroupProbe::awaitWaiters(group, 1, std::chrono::seconds(30)));
        return group;
    }

    std::size_t count() const {
        const std::lock_guard lock(mutex_);
        return groups_.size();
    }

    /// Lets go everybody who still waits.
    void end() {
        const std::lock_guard lock(mutex_);
        for (const DispatchGroup& group : groups_) {
            if (detail::GroupProbe::waiters(group) > 0) group.leave();
        }
    }

private:
    DispatchGroup at(std::size_t index) const {
        const std::lock_guard lock(mutex_);
        return index < groups_.size() ? groups_[index] : DispatchGroup();
    }

    mutable std::mutex mutex_;
    std::vector<DispatchGroup> groups_;
    Event added_;
};

/// Tokens whose texts are made of `name`, with the clock's time at which they end.
inline Auth tokens(const std::string& name, double expiry) {
    return {.accessToken = "access-" + name,
            .expiry = Date(Date::duration(expiry)),
            .refreshToken = "refresh-" + name,
            .tokenType = "type-" + name};
}

/// The same as the member of an answer.
inline std::string authMember(const std::string& name, double expiry) {
    return R"("auth":{"access_token":"access-)" + name + R"(","refresh_token":"refresh-)" + name +
           R"(","token_type":"type-)" + name + R"(","expiry":)" + std::to_string(expiry) + "}";
}

/// A token answer.
inline Reply tokenReply(const std::string& name, double expiry) {
    return answer(200, Data("{" + authMember(name, expiry) + "}"));
}

inline Reply reply(std::int64_t status, const std::string& body) { return answer(status, Data(body)); }

/// "GET /v2/token?UID=u1 Bearer x": method, address below the host, and `Authorization` of a request.
inline std::string textOf(const URLRequest& request) {
    const std::string address = request.url()->absoluteString();
    return request.httpMethod().value_or("") + " " +
           address.substr(std::string("https://user.example.test").size()) + " " +
           request.value("Authorization").value_or("none");
}

/// The clock stands at 1000 until a test moves it.
class Client : public ::testing::Test {
protected:
    Client() { context.session = session; }
    /// A test that failed halfway may have left callers waiting.
    ~Client() override {
        waits.end();
        EXPECT_TRUE(returned_.wait(calls_)) << "a caller waits for ever";
        session->abandon();
    }

    detail::TrelvoState& state() { return TrelvoProbe::state(*trelvo); }
    void save(const std::string& name, double expiry) { state().auth.store(tokens(name, expiry)); }
    /// Saves tokens that are good for long.
    void saveGoodTokens() { save("good", 2000); }
    void saveError(TrelvoError error) { state().authError.store(std::move(error)); }
    /// The access token in use; "none" where there is none.
    std::string saved() const { return trelvo->auth() ? trelvo->auth()->accessToken : "none"; }
    std::string savedError() const {
        return trelvo->authError() ? trelvo->authError()->errorDescription() : "none";
    }

    /// Runs `body` on a thread of its own, where it may block. The event tells that it has returned.
    Event onItsOwnThread(Block body) {
        const Event returned;
        ++calls_;
        DispatchQueue::withOwnThread("caller").async(
            [returned, all = returned_, body = std::move(body)]() mutable {
                body();
                returned.signal();
                all.signal();
            });
        return returned;
    }

    std::string sent(std::size_t index) { return textOf(session->request(index)); }

    std::atomic<double> now{1000.0};
    Waits waits;
    std::unique_ptr<Trelvo> trelvo{new Trelvo(TrelvoProbe::make(
        [this] { return now.load(); }, [this](const DispatchGroup& group) { waits.add(group); }))};
    std::shared_ptr<ScriptedSession> session = std::make_shared<ScriptedSession>();
    UserContext context;
    Outcomes outcomes;

private:
    int calls_ = 0;
    Event returned_;
};

inline const std::string tokenRequest = "GET /v2/token?UID=u1&source=lumeno ";

}  // namespace VanticRestKit::test
