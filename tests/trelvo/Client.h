#pragma once

/// \file
/// A client of the user data service with a clock and a transport controlled by the test.

#include <VanticRestKit/platform/dispatch/detail/Probes.h>
#include <VanticRestKit/trelvo/detail/TrelvoProbe.h>

#include <trelvo/Outcomes.h>
#include <trelvo/UserContext.h>
#include <atomic>
#include <string>
#include <utility>

namespace VanticRestKit::test {

/// The groups that operations wait for, in the order in which the waits began.
class Waits {
public:
    void add(const DispatchGroup& group) {
        const std::lock_guard lock(mutex_);
        groups_.push_back(group);
        added_.signal();
    }

    /// The group of wait number `index`, counted from 0. Waits until it exists, and fails the current test if it does
    /// not.
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

    /// Ends all waits.
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

/// Tokens whose strings contain `name`, and that expire at this time of the test's clock.
inline Auth tokens(const std::string& name, double expiry) {
    return {.accessToken = "access-" + name,
            .expiry = Date(Date::duration(expiry)),
            .refreshToken = "refresh-" + name,
            .tokenType = "type-" + name};
}

/// The same tokens as a member of a response.
inline std::string authMember(const std::string& name, double expiry) {
    return R"("auth":{"access_token":"access-)" + name + R"(","refresh_token":"refresh-)" + name +
           R"(","token_type":"type-)" + name + R"(","expiry":)" + std::to_string(expiry) + "}";
}

/// A token response.
inline Reply tokenReply(const std::string& name, double expiry) {
    return answer(200, Data("{" + authMember(name, expiry) + "}"));
}

inline Reply reply(std::int64_t status, const std::string& body) { return answer(status, Data(body)); }

/// Method, path with query, and `Authorization` of a request: "GET /v2/token?UID=u1 Bearer x".
inline std::string textOf(const URLRequest& request) {
    const std::string address = request.url()->absoluteString();
    return request.httpMethod().value_or("") + " " +
           address.substr(std::string("https://user.example.test").size()) + " " +
           request.value("Authorization").value_or("none");
}

/// The clock shows 1000 until a test changes it.
class Client : public ::testing::Test {
protected:
    Client() { context.session = session; }
    /// A failed test may have left callers waiting.
    ~Client() override {
        waits.end();
        EXPECT_TRUE(returned_.wait(calls_)) << "a caller waits forever";
        session->abandon();
    }

    detail::TrelvoState& state() { return TrelvoProbe::state(*trelvo); }
    void save(const std::string& name, double expiry) { state().auth.store(tokens(name, expiry)); }
    /// Saves tokens that are valid for a long time.
    void saveGoodTokens() { save("good", 2000); }
    void saveError(TrelvoError error) { state().authError.store(std::move(error)); }
    /// The access token in use, "none" if there is none.
    std::string saved() const { return trelvo->auth() ? trelvo->auth()->accessToken : "none"; }
    std::string savedError() const {
        return trelvo->authError() ? trelvo->authError()->errorDescription() : "none";
    }

    /// Runs `body` on a separate thread, so that it may block. The event is signalled when it has returned.
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
