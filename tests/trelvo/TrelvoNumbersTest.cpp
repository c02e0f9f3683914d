// Numeric arguments of operations on user data: signed numbers, and the unsigned numbers of entities.

#include <trelvo/Client.h>
#include <limits>

namespace VanticRestKit::test {
namespace {

using Kind = TrelvoError::Kind;
using Saved = std::vector<SavedData>;
using History = std::vector<HistoryData>;

constexpr std::uint64_t maxSigned = std::numeric_limits<std::int64_t>::max();
constexpr std::uint64_t tooLarge = maxSigned + 1;

static_assert(!std::is_constructible_v<TrelvoNumber, double> &&
              !std::is_constructible_v<TrelvoNumber, float>);
static_assert(!std::is_constructible_v<TrelvoNumber, bool> &&
              !std::is_constructible_v<TrelvoNumber, const char*>);
static_assert(TrelvoNumber(std::uint8_t{200}).value() == 200 && TrelvoNumber(-1).value() == -1);
static_assert(TrelvoNumber(maxSigned).value() == std::numeric_limits<std::int64_t>::max());
static_assert(TrelvoNumber(std::numeric_limits<std::int64_t>::min()).value() ==
              std::numeric_limits<std::int64_t>::min());
static_assert(!TrelvoNumber(tooLarge).value() &&
              !TrelvoNumber(std::numeric_limits<std::uint64_t>::max()).value());

class TrelvoNumbers : public Client {
protected:
    TrelvoNumbers() { saveGoodTokens(); }

    /// Each operation that takes the id of a show, with its name.
    std::vector<std::pair<std::string, std::function<void(std::uint64_t)>>> operations() {
        return {
            {"addWatchlistShow",
             [this](std::uint64_t showId) {
                 trelvo->addWatchlistShow(
                     {.showId = showId, .completionHandler = completion<Saved>(outcomes.completed())},
                     context);
             }},
            {"deleteShow",
             [this](std::uint64_t showId) {
                 trelvo->deleteShow(
                     {.showId = showId, .completionHandler = completion<void>(outcomes.completed())},
                     context);
             }},
            {"listVideosForShow",
             [this](std::uint64_t showId) {
                 trelvo->listVideosForShow({.showId = showId,
                                            .markedAsDone = std::nullopt,
                                            .completionHandler = completion<History>(outcomes.completed())},
                                           context);
             }},
            {"getVideoProgress",
             [this](std::uint64_t showId) {
                 trelvo->getVideoProgress({.showId = showId,
                                           .houseNumber = "h",
                                           .completionHandler = completion<History>(outcomes.completed())},
                                          context);
             }},
            {"updateVideoProgress", [this](std::uint64_t showId) { update(showId, std::uint64_t{7}); }}};
    }

    void update(std::uint64_t showId, TrelvoNumber progress) {
        trelvo->updateVideoProgress({.showId = showId,
                                     .houseNumber = "h",
                                     .progress = progress,
                                     .isDone = false,
                                     .completionHandler = completion<History>(outcomes.completed())},
                                    context);
    }

    void expectRefused(const std::string& operation, const std::string& argument) {
        const Outcome outcome = outcomes.only();
        EXPECT_TRUE(outcome.is(Kind::unknown)) << operation;
        EXPECT_EQ(outcome.text(), "Unknown error: In Trelvo." + operation + "(), " + argument +
                                      " is beyond the range of a signed number");
        EXPECT_EQ(outcome.thread, std::this_thread::get_id());
        EXPECT_EQ(context.tokenRequests + context.dataRequests, 0);
        EXPECT_EQ(session->count(), 0U);
    }
};

TEST_F(TrelvoNumbers, CanBeTheUnsignedIdsOfEntities) {
    std::size_t index = 0;
    for (const auto& [name, run] : operations()) {
        run(maxSigned);
        EXPECT_NE(sent(index++).find("/9223372036854775807"), std::string::npos) << name;
    }
}

TEST_F(TrelvoNumbers, BeyondTheSignedRangeFailAndNothingIsSent) {
    for (const auto& [name, run] : operations()) {
        outcomes = Outcomes();
        run(tooLarge);
        expectRefused(name, "showId");
    }
    outcomes = Outcomes();
    update(42, tooLarge);
    expectRefused("updateVideoProgress", "progress");
}

TEST_F(TrelvoNumbers, BeyondTheSignedRangeFailEvenWithoutAToken) {
    trelvo->clearAuth();
    for (const auto& [name, run] : operations()) {
        outcomes = Outcomes();
        run(tooLarge);
        expectRefused(name, "showId");
    }
}

TEST_F(TrelvoNumbers, AreSentUnchanged) {
    update(42, -5);
    EXPECT_NE(sent(0).find("/show/42/video/h/progress/-5?"), std::string::npos) << sent(0);
}

}  // namespace
}  // namespace VanticRestKit::test
