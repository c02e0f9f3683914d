#include <lumeno/Routes.h>
#include <VanticRestKit/lumeno/Remap/RemapRoutes.h>

namespace VanticRestKit {
namespace {

using test::expectAGet;
using Items = std::vector<URLQueryItem>;

RemapURI route(const char* path) { return RemapURI({.path = path, .queryItems = Items()}); }

TEST(RemapURI, TreatsAPathTheSameWithAndWithoutALeadingSlash) {
    expectAGet(route("/video/x"), "v2/remap/video/x");
    expectAGet(route("video/x"), "v2/remap/video/x");
    EXPECT_EQ(route("/video/x"), route("video/x"));
}

TEST(RemapURI, EndsWithASlashForAnEmptyPath) {
    expectAGet(route(""), "v2/remap/");
    expectAGet(route("/"), "v2/remap/");
}

TEST(RemapURI, RemovesOnlyOneLeadingSlash) {
    expectAGet(route("//x"), "v2/remap//x");
    expectAGet(route(" /x"), "v2/remap/ /x");
    expectAGet(route("a b/../c?d=%20"), "v2/remap/a b/../c?d=%20");
}

TEST(RemapURI, KeepsItsQueryItemsAndTheirOrder) {
    const Items items = {{"b", "2"}, {"a", "1"}, {"b", std::nullopt}, {"", ""}};
    expectAGet(RemapURI({.path = "x", .queryItems = items}), "v2/remap/x", items);
}

TEST(RemapURI, SendsAPathThatWasSetLaterUnchanged) {
    RemapURI changed = route("video/x");
    changed.path = "video/y";
    expectAGet(changed, "video/y");
    changed.path = "/video/y";
    expectAGet(changed, "/video/y");
    changed.path = "";
    expectAGet(changed, "");
}

TEST(RemapURI, KeepsThePathWithItsPrefix) { EXPECT_EQ(route("x").path, "v2/remap/x"); }

TEST(RemapURI, EqualsARouteWithTheSameFields) {
    EXPECT_EQ(route("x"), route("/x"));
    EXPECT_NE(route("x"), route("y"));
}

}  // namespace
}  // namespace VanticRestKit
