// The shared client of a process, with the system clock.

#include <trelvo/Client.h>

namespace VanticRestKit::test {
namespace {

static_assert(!std::is_default_constructible_v<Trelvo>);
static_assert(!std::is_copy_constructible_v<Trelvo> && !std::is_move_constructible_v<Trelvo>);

class TrelvoShared : public Client {
protected:
    ~TrelvoShared() override { Trelvo::shared().clearAuth(); }

    Event startListing() {
        return onItsOwnThread([this] {
            Trelvo::shared().listWatchlistShowIds(
                {.completionHandler = completion<std::vector<SavedData>>(outcomes.completed())}, context);
        });
    }
};

TEST_F(TrelvoShared, IsASingletonWithoutTokensAtTheStart) {
    EXPECT_EQ(&Trelvo::shared(), &Trelvo::shared());
    EXPECT_FALSE(Trelvo::shared().auth());
    EXPECT_FALSE(Trelvo::shared().authError());
}

TEST_F(TrelvoShared, UsesTheSystemClock) {
    using namespace std::chrono;
    const double present = duration<double>(system_clock::now().time_since_epoch()).count();
    const Event first = startListing();
    session->answer(0, tokenReply("past", present - 60));
    ASSERT_TRUE(first.wait());
    (void)session->request(1);
    const Event second = startListing();
    EXPECT_EQ(sent(2), tokenRequest + "Bearer refresh-past");
    session->answer(2, tokenReply("future", present + 3600));
    ASSERT_TRUE(second.wait());
    (void)session->request(3);
    const Event third = startListing();
    EXPECT_NE(sent(4).find(" Bearer access-future"), std::string::npos) << sent(4);
    EXPECT_TRUE(third.wait());
}

}  // namespace
}  // namespace VanticRestKit::test
