#include <gtest/gtest.h>

#include "Browser.h"
#include "support/Event.h"

#include <VanticRestKit/Testing/SampleService/SampleService.h>

#include <future>

namespace living_room {
namespace {

using VanticRestKit::Testing::SampleFault;
using VanticRestKit::Testing::SampleService;

class PagesTest : public ::testing::Test {
protected:
    static bool holds(const std::string& text, const std::string& part) {
        return text.find(part) != std::string::npos;
    }

    SampleService sample;
    const RunningHost host{sample.baseURL()};
    Browser browser{host};
};

TEST_F(PagesTest, HomeHasAFeaturedItemAndRows) {
    EXPECT_TRUE(holds(browser.get("/"), "<body data-screen=\"home\">"));
    const std::string screen = browser.get("/part/");
    EXPECT_TRUE(holds(screen, "X-State: ready")) << screen;
    EXPECT_TRUE(holds(screen, "<h1>Harbour Lights</h1>"));
    EXPECT_TRUE(holds(screen, "data-row=\"New this week\" data-src=\"/part/collection/1001\""));
    EXPECT_TRUE(holds(screen, "data-src=\"/part/live-row\""));
    EXPECT_TRUE(holds(browser.get("/part/collection/1001"), "data-kind=\"Video\""));
}

TEST_F(PagesTest, EachScreenAnswersWithoutTheServiceAndLoadsItsParts) {
    const std::pair<const char*, const char*> screens[] = {{"/", "home"},     {"/show/x", "show"},
                                                           {"/live", "live"}, {"/video/x", "video"},
                                                           {"/me", "me"},     {"/search", "search"}};
    for (const auto& [address, name] : screens) {
        const std::string page = browser.get(address);
        EXPECT_TRUE(holds(page, "<body data-screen=\"" + std::string(name) + "\">")) << address;
        EXPECT_TRUE(holds(page, "data-state=\"loading\"")) << address;
    }
    EXPECT_EQ(sample.log().size(), 0U);
}

TEST_F(PagesTest, PicturesComeThroughTheHost) {
    const std::string picture = browser.get("/pictures/show/harbour-lights/landscape.svg");
    EXPECT_TRUE(holds(picture, "Content-Type: image/svg+xml"));
    EXPECT_TRUE(holds(picture, "<svg"));
    EXPECT_TRUE(browser.get("/pictures/nothing").starts_with("HTTP/1.1 404"));
}

TEST_F(PagesTest, APersonHasTheSamePictureOnEveryScreen) {
    const std::string picture = browser.get("/avatar?of=ann");
    EXPECT_TRUE(holds(picture, "Location: /pictures/avatar/")) << picture;
    Browser other(host);
    const std::string again = other.get("/avatar?of=ann");
    EXPECT_TRUE(holds(again, picture.substr(picture.find("Location:"), 30))) << again;
}

TEST_F(PagesTest, EachBrowserHasAUserOfItsOwn) {
    Browser other(host);
    EXPECT_TRUE(holds(browser.get("/me"), "Who is watching?"));
    EXPECT_TRUE(browser.post("/sign-in", "name=ann").starts_with("HTTP/1.1 303"));
    EXPECT_TRUE(other.post("/sign-in", "name=ben").starts_with("HTTP/1.1 303"));
    EXPECT_TRUE(browser.post("/save", "show=11&on=1").starts_with("HTTP/1.1 200"));
    EXPECT_TRUE(holds(browser.get("/part/list"), "Harbour Lights"));
    EXPECT_TRUE(holds(other.get("/part/list"), "X-State: empty"));
    EXPECT_TRUE(holds(other.get("/part/me"), "data-profile=\"ben\""));
    EXPECT_TRUE(other.post("/sign-out", "").starts_with("HTTP/1.1 303"));
    EXPECT_TRUE(holds(other.get("/part/me"), "data-action=\"sign-in\""));
    EXPECT_TRUE(holds(browser.get("/part/save?show=11"), "aria-pressed=\"true\""));
}

TEST_F(PagesTest, AProfileHasAListOfItsOwn) {
    browser.post("/sign-in", "name=ann");
    browser.post("/save", "show=11&on=1");
    browser.post("/profile", "name=tim");
    EXPECT_TRUE(holds(browser.get("/part/list"), "X-State: empty"));
    const std::string people = browser.get("/part/me");
    EXPECT_TRUE(holds(people, "data-profile=\"ann\"")) << people;
    EXPECT_TRUE(holds(people, "data-profile=\"ann.tim\"")) << people;
}

TEST_F(PagesTest, ProgressIsSavedAndTheVideoResumes) {
    browser.post("/sign-in", "name=ann");
    EXPECT_FALSE(holds(browser.get("/part/video/HL0101"), "Resume at"));
    EXPECT_TRUE(
        browser.post("/progress", "show=11&video=HL0101&position=125&done=0").starts_with("HTTP/1.1 200"));
    const std::string screen = browser.get("/part/video/HL0101");
    EXPECT_TRUE(holds(screen, "Resume at <time data-position=\"125\">")) << screen;
    EXPECT_TRUE(holds(screen, "data-resume=\"125\""));
    EXPECT_TRUE(holds(browser.get("/part/continue"), "data-progress=\"125\""));
}

TEST_F(PagesTest, ARefusedTokenOffersToSignIn) {
    browser.post("/sign-in", "name=ann");
    sample.add({.kind = SampleFault::Kind::expiredToken, .path = "v2/saved/watchlist/show", .count = 10});
    const std::string list = browser.get("/part/list");
    EXPECT_TRUE(holds(list, "Please sign in and try again.")) << list;
    EXPECT_TRUE(holds(list, "href=\"/me\""));
}

TEST_F(PagesTest, TheChannelsOfARegionHaveNowAndNext) {
    const std::string live = browser.get("/part/live?region=tas");
    EXPECT_TRUE(holds(live, "/video/LIVE0001TAS")) << live;
    EXPECT_TRUE(holds(live, "data-end="));
    EXPECT_TRUE(holds(live, "<b>Next</b>"));
}

TEST_F(PagesTest, ASearchFindsSomethingOrNothing) {
    EXPECT_TRUE(holds(browser.get("/part/search?q=sea"), "Night Ferry"));
    EXPECT_TRUE(holds(browser.get("/part/search?q=zeppelin"), "Nothing was found for “zeppelin”."));
    EXPECT_TRUE(holds(browser.get("/part/search?q="), "X-State: empty"));
}

TEST_F(PagesTest, ThePanelListsTheRequestsOfThisBrowserOnly) {
    Browser other(host);
    browser.get("/part/search?q=sea");
    EXPECT_TRUE(holds(browser.get("/part/panel"), "/v2/search?keyword=sea"));
    EXPECT_FALSE(holds(other.get("/part/panel"), "/v2/search"));
}

TEST(ServerTest, CancelsTheLoadsOfABrowserThatGoesAway) {
    Server server(0);
    const VanticRestKit::test::Event asked, gone;
    std::thread thread([&] {
        server.run([&](Request request) -> Task<Answer> {
            const std::stop_callback onGone(request.gone, [&] { gone.signal(); });
            asked.signal();
            // It never answers, so only the stop request ends the load.
            SampleService silent;
            silent.add({.kind = SampleFault::Kind::stall});
            const Service service(silent.baseURL(), server.queue());
            const User user(service);
            auto resource = Endpoint::Time(*user.context);
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

TEST(ServerTest, StopsWhileConnectionsAreOpen) {
    Server server(0);
    std::thread thread([&] { server.run([](Request) -> Task<Answer> { co_return Answer(); }); });
    const auto socket = VanticRestKit::test::connectToLoopback(server.port());
    EXPECT_TRUE(socket);
    server.stop();
    thread.join();
}

}  // namespace
}  // namespace living_room
