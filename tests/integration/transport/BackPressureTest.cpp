#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>
#include <support/Event.h>
#include <support/FaultServer.h>
#include <support/Loading.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

using namespace VanticRestKit;
using namespace VanticRestKit::test;
using Seconds = std::chrono::duration<double>;

namespace {

constexpr std::size_t megabyte = 1024 * 1024;

URLRequest impatient(const std::string& url, double seconds) {
    URLRequest request = requestOf(url);
    request.setTimeoutInterval(Seconds(seconds));
    return request;
}

/// Blocks the delegate queue of a session.
class Blockade {
public:
    explicit Blockade(URLSession& session) {
        session.delegateQueue().async([state = state_] {
            std::unique_lock lock(state->mutex);
            state->isInside.signal();
            state->changed.wait_for(lock, std::chrono::minutes(1), [&] { return state->isOver; });
        });
        EXPECT_TRUE(state_->isInside.wait());
    }
    void lift() {
        const std::lock_guard lock(state_->mutex);
        state_->isOver = true;
        state_->changed.notify_all();
    }
    ~Blockade() { lift(); }

private:
    struct State {
        std::mutex mutex;
        std::condition_variable changed;
        Event isInside;
        bool isOver = false;
    };
    std::shared_ptr<State> state_ = std::make_shared<State>();
};

/// Answers with a megabyte, but never answers /stall.
FaultServer::Script generous() {
    return [](FaultConnection& connection) {
        while (const auto request = connection.readRequest()) {
            if (request->target == "/stall") {
                connection.stall();
                return;
            }
            connection.send(answer(200, std::string(megabyte, 'x')));
        }
    };
}

std::shared_ptr<URLSession> sessionWith(std::uint64_t maxUndelivered) {
    URLSessionConfiguration configuration;
    configuration.limits.maxUndeliveredBytes = maxUndelivered;
    return URLSession::make(configuration);
}

}  // namespace

TEST(BackPressure, UndeliveredResponsesStopReading) {
    FaultServer server(generous());
    FaultServer stalling(generous());
    const auto session = sessionWith(8 * megabyte);
    Blockade blockade(*session);
    // Starts before reading stops, and times out while reading is stopped.
    const Loaded stalled = startLoad(*session, impatient(stalling.url("/stall"), 5));
    ASSERT_TRUE(stalling.waitForRequests(1));
    std::vector<Loaded> loads;
    // The idle timeout is shorter than the blockade, since it does not run while a load is paused.
    for (int i = 0; i < 200; ++i) loads.push_back(startLoad(*session, impatient(server.url(), 4)));
    EXPECT_TRUE(stalling.waitForClosedByClient(1)) << "the timeout was delayed";
    // Eight fill the limit, and six connections may have a few more in flight.
    EXPECT_LE(server.requests().size(), 30U);
    blockade.lift();
    EXPECT_EQ(stalled.code(), URLErrorCode::timedOut) << stalled.story();
    for (const Loaded& loaded : loads) ASSERT_EQ(loaded.body().size(), megabyte) << loaded.story();
}

TEST(BackPressure, APausedLoadCanBeCancelled) {
    FaultServer server(generous());
    const auto session = sessionWith(megabyte);
    Blockade blockade(*session);
    std::vector<Loaded> loads(30);
    std::vector<std::shared_ptr<URLSessionDataTask>> tasks;
    for (const Loaded& loaded : loads) {
        tasks.push_back(session->dataTask(requestOf(server.url()), loaded.completion()));
        tasks.back()->resume();
    }
    ASSERT_TRUE(server.waitForRequests(3));
    for (const auto& task : tasks) task->cancel();
    blockade.lift();
    for (const Loaded& loaded : loads) {
        ASSERT_TRUE(loaded.wait());
        EXPECT_EQ(loaded.calls(), 1);
    }
    EXPECT_EQ(load(*session, server.url()).body().size(), megabyte);
}

TEST(BackPressure, AResponseLargerThanTheLimitIsDelivered) {
    FaultServer server(always(answer(200, std::string(3 * megabyte, 'x'))));
    const auto session = sessionWith(1000);
    std::vector<Loaded> loads;
    for (int i = 0; i < 20; ++i) loads.push_back(startLoad(*session, requestOf(server.url())));
    for (const Loaded& loaded : loads) EXPECT_EQ(loaded.body().size(), 3 * megabyte) << loaded.story();
}

namespace {

/// The reports of one load.
struct ObservedLoad {
    Loaded loaded{};
    std::shared_ptr<std::vector<LoadProgress::State>> states =
        std::make_shared<std::vector<LoadProgress::State>>();
    std::shared_ptr<RequestMetrics> record = std::make_shared<RequestMetrics>();

    void start(URLSession& session, const std::string& url) const {
        session
            .dataTask(
                requestOf(url), loaded.completion(),
                [record = record](const RequestMetrics& metrics) { *record = metrics; },
                [states = states](const LoadProgress& progress) {
                    if (states->empty() || states->back() != progress.state)
                        states->push_back(progress.state);
                })
            ->resume();
    }
    bool wasHeldBack() const {
        return std::find(states->begin(), states->end(), LoadProgress::State::heldBack) != states->end();
    }
};

}  // namespace

TEST(BackPressure, ALoadThatIsHeldBackReportsThat) {
    FaultServer server(generous());
    const auto session = sessionWith(1);
    // It depends on the network whether a body in flight when the first one completes is held back.
    const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    int heldBack = 0;
    while (heldBack == 0 && std::chrono::steady_clock::now() < end) {
        Blockade blockade(*session);
        const std::size_t before = server.requests().size();
        const std::vector<ObservedLoad> loads(12);
        for (const ObservedLoad& each : loads) each.start(*session, server.url());
        ASSERT_TRUE(server.waitForRequests(before + 6));
        blockade.lift();
        for (const ObservedLoad& each : loads) {
            ASSERT_EQ(each.loaded.body().size(), megabyte) << each.loaded.story();
            EXPECT_EQ(each.wasHeldBack(), each.record->heldBack > RequestMetrics::Duration::zero());
            if (!each.wasHeldBack()) continue;
            ++heldBack;
            EXPECT_EQ(each.states->back(), LoadProgress::State::loading) << "it continued";
        }
    }
    EXPECT_GT(heldBack, 0);
}
