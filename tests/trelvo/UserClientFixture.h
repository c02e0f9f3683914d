#pragma once

/// \file
/// A `UserClient` with a clock and a transport controlled by the test.

#include <VanticRestKit/trelvo/detail/UserClientProbe.h>

#include <trelvo/Client.h>
#include <atomic>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit::test {

/// The code of the transport error inside the error of a failed operation, 0 if there is none.
inline std::int64_t transportCode(const Outcome& outcome) {
    const LoaderError held = outcome.loaderError();
    const auto* const network = held.underlyingError() ? held.underlyingError()->as<NetworkError>() : nullptr;
    return network != nullptr && network->underlyingError() ? network->underlyingError()->code() : 0;
}

inline bool isCancelled(const Outcome& outcome) {
    return outcome.is(TrelvoError::Kind::general) && transportCode(outcome) == -999;
}

/// The clock shows 1000 until a test changes it.
class UserClientFixture : public ::testing::Test {
protected:
    using Saved = std::vector<SavedData>;
    using Kind = TrelvoError::Kind;

    UserClientFixture() { context->session = session; }
    ~UserClientFixture() override {
        handles.clear();
        // Ends operations without a handle, such as the other steps of a deletion.
        if (client) {
            client->signOut();
            drain();
        }
        session->abandon();
    }

    /// Starts an operation whose outcome is added to `outcomes`, or to `into`.
    void list(const LoadOptions& options = {}) { list(outcomes, options); }
    // If inlined, GCC 12 with sanitizers reports the empty options as uninitialized.
    [[gnu::noinline]] void list(const Outcomes& into, const LoadOptions& options = {}) {
        handles.push_back(client->listWatchlistShowIds().start(options, completion<Saved>(into.completed())));
    }
    /// The same with a separate collection of outcomes.
    Outcomes listSeparately(const LoadOptions& options = {}) {
        Outcomes separate;
        list(separate, options);
        return separate;
    }
    /// The outcome of the only operation in `of`. Waits for it.
    static Outcome only(const Outcomes& of) {
        EXPECT_TRUE(of.dropped().wait()) << "no outcome";
        return of.only();
    }
    Outcome only() const { return only(outcomes); }

    /// Waits until the client has processed all calls so far.
    void drain() const {
        const Event done;
        UserClientProbe::session(*client).queue().async([done] { done.signal(); });
        EXPECT_TRUE(done.wait());
    }
    /// The number of requests sent after all calls so far were processed.
    std::size_t sentCount() const {
        drain();
        return session->count();
    }
    std::string sent(std::size_t index) { return textOf(session->request(index)); }
    void answer(std::size_t index, Reply reply) { session->answer(index, std::move(reply)); }
    static Reply noRecords() { return reply(200, R"({"data":[]})"); }

    void save(const std::string& name, double expiry, const std::string& uid = "u1") {
        client->setAuth(UserAuth{.uid = uid, .auth = tokens(name, expiry)});
    }
    /// The access token held after all calls so far were processed, "none" if there is none.
    std::string held() const {
        drain();
        return client->auth() ? client->auth()->auth.accessToken : "none";
    }

    std::shared_ptr<ScriptedSession> session = std::make_shared<ScriptedSession>();
    std::shared_ptr<UserContext> context = std::make_shared<UserContext>();
    std::shared_ptr<std::atomic<double>> now = std::make_shared<std::atomic<double>>(1000.0);
    std::shared_ptr<UserClient> client =
        UserClientProbe::make(context, [clock = now] { return clock->load(); });
    Outcomes outcomes;
    std::vector<Cancellable> handles;
};

inline const std::string listRequest =
    "GET /v2/saved/watchlist/show?UID=u1&raw=1&source=lumeno Bearer access-";

}  // namespace VanticRestKit::test
