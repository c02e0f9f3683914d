#include "Http.h"

#include <gtest/gtest.h>

namespace living_room {
namespace {

Request requestOf(const std::string& target) {
    Request request;
    EXPECT_TRUE(request.read(target, "")) << target;
    return request;
}

TEST(HttpTest, ReadsPathAndQueryOfATarget) {
    const std::string target = "/show/night%20ferry?series=%2Fseries%2F111&q=a+b&empty";
    const Request request = requestOf(target);
    EXPECT_EQ(request.target, target);
    EXPECT_EQ(request.path, "/show/night ferry");
    EXPECT_EQ(request.field("series"), "/series/111");
    EXPECT_EQ(request.field("q"), "a+b");
    EXPECT_EQ(request.field("empty"), "");
    EXPECT_EQ(request.field("missing"), "");
}

TEST(HttpTest, ReadsAnItemAsTheScriptOfThePageEncodesIt) {
    EXPECT_EQ(requestOf("/search?q=a%2Bb%20c%26d%3De%22%3C%3E%23%3F%25").field("q"), "a+b c&d=e\"<>#?%");
    EXPECT_EQ(requestOf("/search?q=%E2%80%9CBl%C3%BCtezeit%E2%80%9D").field("q"), "“Blütezeit”");
    EXPECT_EQ(requestOf("/search?q=%zz").field("q"), "%zz");
}

TEST(HttpTest, RefusesTargetsThatAreNoPathsOrLeadUpwards) {
    for (const char* const target : {"", "*", "http://other.example/", "//other.example/x", "/%00", "/a/../b",
                                     "/%2e%2e/x", "/hls/..%2f..%2fv2/time", "nonsense"}) {
        Request request;
        EXPECT_FALSE(request.read(target, "")) << target;
    }
}

TEST(HttpTest, ReadsAFormAsBrowsersSendIt) {
    Request request;
    EXPECT_TRUE(request.read("/save", "name=Ann+Lee&show=11&odd=%26%3D%2B"));
    EXPECT_EQ(request.field("name"), "Ann Lee");
    EXPECT_EQ(request.field("show"), "11");
    EXPECT_EQ(request.field("odd"), "&=+");
}

TEST(HttpTest, FindsACookieAmongOthers) {
    Request request;
    request.cookies = "a=1; living-room=abc;  xliving-room=no; b";
    EXPECT_EQ(request.cookie("living-room"), "abc");
    EXPECT_EQ(request.cookie("a"), "1");
    EXPECT_EQ(request.cookie("b"), "");
    EXPECT_EQ(Request().cookie("a"), "");
}

TEST(HttpTest, ReadsWholeNumbersOnly) {
    EXPECT_EQ(numberIn("0"), 0);
    EXPECT_EQ(numberIn("65535"), 65'535);
    for (const char* const text : {"", "-1", "1.5", "1 ", "x", "99999999999999999999"}) {
        EXPECT_EQ(numberIn(text), std::nullopt) << text;
    }
}

}  // namespace
}  // namespace living_room
