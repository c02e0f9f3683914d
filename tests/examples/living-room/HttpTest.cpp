#include "Http.h"

#include <gtest/gtest.h>

namespace living_room {
namespace {

Request requestOf(const std::string& target) {
    Request request;
    EXPECT_TRUE(readTarget(target, request)) << target;
    return request;
}

TEST(HttpTest, ReadsPathAndQueryOfATarget) {
    const Request request = requestOf("/show?link=/show/night-ferry&series=%2Fseries%2F111&empty");
    EXPECT_EQ(request.path, "/show");
    EXPECT_EQ(request.queried("link"), "/show/night-ferry");
    EXPECT_EQ(request.queried("series"), "/series/111");
    EXPECT_EQ(request.queried("empty"), "");
    EXPECT_EQ(request.queried("missing"), "");
}

TEST(HttpTest, ReadsBackWhatIsEncodedIntoAQuery) {
    for (const std::string text : {"a+b c&d=e\"<>#?%", "Blütezeit", "“”", "/..", ""}) {
        EXPECT_EQ(requestOf("/search?q=" + percentEncoded(text)).queried("q"), text);
    }
}

TEST(HttpTest, RefusesTargetsThatAreNone) {
    for (const char* const target : {"", "*", "http://other.example/", "//other.example/x", "/%00", "/a/../b",
                                     "/%2e%2e/x", "/stream/hls/..%2f..%2fv2/time", "nonsense"}) {
        Request request;
        EXPECT_FALSE(readTarget(target, request)) << target;
    }
}

TEST(HttpTest, ReadsAFormAsBrowsersSendIt) {
    Request request;
    EXPECT_TRUE(readForm("name=Ann+Lee&show=11&odd=%26%3D%2B", request));
    EXPECT_EQ(request.posted("name"), "Ann Lee");
    EXPECT_EQ(request.posted("show"), "11");
    EXPECT_EQ(request.posted("odd"), "&=+");
}

TEST(HttpTest, FindsACookieAmongOthers) {
    Request request;
    request.headers["cookie"] = "a=1; living-room=abc;  xliving-room=no; b";
    EXPECT_EQ(request.cookie("living-room"), "abc");
    EXPECT_EQ(request.cookie("a"), "1");
    EXPECT_EQ(request.cookie("b"), "");
    EXPECT_EQ(Request().cookie("a"), "");
}

}  // namespace
}  // namespace living_room
