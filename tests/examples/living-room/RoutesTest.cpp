#include <gtest/gtest.h>

#include "Browser.h"
#include "support/Event.h"

#include <VanticRestKit/Testing/SampleService/SampleService.h>

#include <future>

namespace living_room {
namespace {

using VanticRestKit::Testing::SampleFault;
using VanticRestKit::Testing::SampleService;

class RoutesTest : public ::testing::Test {
protected:
    static bool holds(const std::string& text, const std::string& part) {
        return text.find(part) != std::string::npos;
    }

    SampleService sample;
    const RunningHost host{sample.baseURL()};
    Browser browser{host};
};

TEST_F(RoutesTest, HomeHasAFeaturedItemAndRows) {
    EXPECT_TRUE(holds(browser.get("/"), "<body data-screen=\"home\">"));
    const std::string screen = browser.get("/home/screen");
    EXPECT_TRUE(holds(screen, "X-State: ready")) << screen;
    EXPECT_TRUE(holds(screen, "<h1>Harbour Lights</h1>"));
    EXPECT_TRUE(holds(screen, "data-row=\"New this week\" data-src=\"/row?link=/collection/1001\""));
    EXPECT_TRUE(holds(screen, "data-src=\"/live/row\""));
    EXPECT_TRUE(holds(browser.get("/row?link=/collection/1001"), "data-kind=\"Video\""));
}

TEST_F(RoutesTest, EachScreenAnswersAtOnceAndLoadsItsParts) {
    const std::pair<const char*, const char*> screens[] = {
        {"/", "home"}, {"/show?link=/show/x", "show"}, {"/live", "live"}, {"/video?link=/video/x", "video"},
        {"/me", "me"}, {"/search", "search"}};
    for (const auto& [address, name] : screens) {
        const std::string page = browser.get(address);
        EXPECT_TRUE(holds(page, "<body data-screen=\"" + std::string(name) + "\">")) << address;
        EXPECT_TRUE(holds(page, "data-state=\"loading\"")) << address;
    }
    EXPECT_EQ(sample.log().size(), 0U);
}

TEST_F(RoutesTest, PicturesComeThroughTheHost) {
    const std::string picture = browser.get("/picture?at=pictures/show/harbour-lights/landscape.svg");
    EXPECT_TRUE(holds(picture, "Content-Type: image/svg+xml"));
    EXPECT_TRUE(holds(picture, "<svg"));
    EXPECT_TRUE(browser.get("/picture?at=pictures/nothing").starts_with("HTTP/1.1 404"));
}

TEST_F(RoutesTest, TwoBrowsersHaveTwoUsers) {
    Browser other(host);
    EXPECT_TRUE(holds(browser.get("/me"), "Who is watching?"));
    EXPECT_TRUE(browser.post("/sign-in", "name=ann").starts_with("HTTP/1.1 303"));
    EXPECT_TRUE(other.post("/sign-in", "name=ben").starts_with("HTTP/1.1 303"));
    EXPECT_TRUE(browser.post("/save", "show=11&on=1").starts_with("HTTP/1.1 200"));
    EXPECT_TRUE(holds(browser.get("/me/list"), "Harbour Lights"));
    EXPECT_TRUE(holds(other.get("/me/list"), "X-State: empty"));
    EXPECT_TRUE(holds(other.get("/me/people"), "data-profile=\"ben\""));
    EXPECT_TRUE(other.post("/sign-out", "").starts_with("HTTP/1.1 303"));
    EXPECT_TRUE(holds(other.get("/me/people"), "data-action=\"sign-in\""));
    EXPECT_TRUE(holds(browser.get("/save?id=11"), "aria-pressed=\"true\""));
}

TEST_F(RoutesTest, AProfileHasAListOfItsOwn) {
    browser.post("/sign-in", "name=ann");
    browser.post("/save", "show=11&on=1");
    browser.post("/profile", "name=tim");
    EXPECT_TRUE(holds(browser.get("/me/list"), "X-State: empty"));
    const std::string people = browser.get("/me/people");
    EXPECT_TRUE(holds(people, "data-profile=\"ann\"")) << people;
    EXPECT_TRUE(holds(people, "data-profile=\"ann.tim\"")) << people;
}

TEST_F(RoutesTest, ProgressIsKeptAndResumed) {
    browser.post("/sign-in", "name=ann");
    EXPECT_FALSE(holds(browser.get("/video/screen?link=/video/HL0101"), "Resume at"));
    EXPECT_TRUE(
        browser.post("/progress", "show=11&video=HL0101&position=125&done=0").starts_with("HTTP/1.1 200"));
    const std::string screen = browser.get("/video/screen?link=/video/HL0101");
    EXPECT_TRUE(holds(screen, "Resume at 2:05")) << screen;
    EXPECT_TRUE(holds(screen, "data-resume=\"125\""));
    EXPECT_TRUE(holds(browser.get("/continue"), "data-progress=\"125\""));
}

TEST_F(RoutesTest, ARefusedTokenAsksToSignIn) {
    browser.post("/sign-in", "name=ann");
    sample.add({.kind = SampleFault::Kind::expiredToken, .path = "v2/saved/watchlist/show", .count = 10});
    const std::string list = browser.get("/me/list");
    EXPECT_TRUE(holds(list, "Please sign in and try again.")) << list;
    EXPECT_TRUE(holds(list, "href=\"/me\""));
}

TEST_F(RoutesTest, TheChannelsOfARegionHaveNowAndNext) {
    const std::string live = browser.get("/live/now?region=tas");
    EXPECT_TRUE(holds(live, "/video/LIVE0001TAS")) << live;
    EXPECT_TRUE(holds(live, "data-end="));
    EXPECT_TRUE(holds(live, "<b>Next</b>"));
}

TEST_F(RoutesTest, ASearchFindsSomethingOrNothing) {
    EXPECT_TRUE(holds(browser.get("/search/results?q=sea"), "Night Ferry"));
    EXPECT_TRUE(holds(browser.get("/search/results?q=zeppelin"), "Nothing was found for “zeppelin”."));
    EXPECT_TRUE(holds(browser.get("/search/results?q="), "X-State: empty"));
}

TEST_F(RoutesTest, ThePanelListsTheRequestsOfThisBrowserOnly) {
    Browser other(host);
    browser.get("/search/results?q=sea");
    EXPECT_TRUE(holds(browser.get("/panel"), "/v2/search?keyword=sea"));
    EXPECT_FALSE(holds(other.get("/panel"), "/v2/search"));
}

TEST(ServerTest, ABrowserThatGoesAwayCancelsWhatIsLoadedForIt) {
    Server server(0);
    const VanticRestKit::test::Event asked, gone;
    std::thread thread([&] {
        server.run([&](Request request) -> Task<Answer> {
            const std::stop_callback onGone(request.gone, [&] { gone.signal(); });
            asked.signal();
            // What never answers: only a stop ends it.
            SampleService silent;
            silent.add({.kind = SampleFault::Kind::stall});
            const Service service(silent.baseURL(), server.queue());
            const User user(service, "");
            auto resource = Endpoint::Time(user.catalogue());
            const LoadOptions options{.on = server.queue(), .stop = request.gone};
            const auto time = co_await resource->value(options);
            EXPECT_FALSE(time);
            co_return Answer();
        });
    });
    {
        const auto socket = VanticRestKit::test::connectToLoopback(server.port());
        const std::string request = "GET / HTTP/1.1\r\n\r\n";
        VanticRestKit::test::sendAll(socket.descriptor(), request.data(), request.size());
        EXPECT_TRUE(asked.wait());
        EXPECT_EQ(gone.count(), 0);
    }
    EXPECT_TRUE(gone.wait());
    server.stop();
    thread.join();
}

TEST(ServerTest, EndsThoughConnectionsAreOpen) {
    Server server(0);
    std::thread thread([&] { server.run([](Request) -> Task<Answer> { co_return Answer(); }); });
    const auto socket = VanticRestKit::test::connectToLoopback(server.port());
    EXPECT_TRUE(socket);
    server.stop();
    thread.join();
}

}  // namespace
}  // namespace living_room
