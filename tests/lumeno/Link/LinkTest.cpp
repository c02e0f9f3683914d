#include <gtest/gtest.h>
#include <VanticRestKit/Core/ResourceURI.h>
#include <VanticRestKit/lumeno/Link/Link.h>
#include <VanticRestKit/lumeno/Link/LinkRoutes.h>

#include <platform/json/FieldRules.h>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::failureOf;
using test::Strictness;

test::EntityRules links() {
    return {.type = test::decodable<Link>,
            .minimal = R"({"href":"h"})",
            .fields = {{"id", "id", Strictness::lenient, test::text()},
                       {"title", "title", Strictness::lenient, test::text()},
                       {"href", "href", Strictness::required, test::text()},
                       {"tags", "tags", Strictness::lenient, test::texts()}}};
}

TEST(Link, HasFourFields) { test::expectDeclaredFields(links()); }

TEST(Link, FailsOnlyWithoutAHref) { test::expectFieldsInEveryState(links()); }

TEST(Link, MustBeAnObject) { test::expectAnObjectOnly(test::decodable<Link>); }

TEST(Link, DoesNotReadATitleFromANumber) {
    EXPECT_EQ(decoded<Link>(R"({"href":"h","title":1})"), Link{.href = "h"});
}

TEST(Link, HasAnEmptyListWithoutTags) {
    EXPECT_EQ(decoded<Link>(R"({"href":"h","id":"i"})"), (Link{.id = "i", .href = "h"}));
}

TEST(Link, ReadsItsHrefFirst) {
    // Only the href can make a link fail, so only its error is reported.
    EXPECT_EQ(failureOf<Link>(R"({"id":1,"title":2,"tags":3,"href":4})"), R"(typeMismatch ["href"])");
    EXPECT_EQ(failureOf<Link>(R"({"id":1,"title":2,"tags":3})"), R"(keyNotFound ["href"])");
    EXPECT_EQ(failureOf<Link>(R"({"id":1,"href":null})"), R"(valueNotFound ["href"])");
}

TEST(Link, CanBeInitializedInDeclaredOrder) {
    const Link link{.id = "a", .title = "b", .href = "c", .tags = {"d"}};
    EXPECT_EQ(valueText(link), R"({"id":"a","title":"b","href":"c","tags":["d"]})");
    EXPECT_EQ(decoded<Link>(valueText(link)), link);
}

TEST(LumenoHrefURI, PutsTheVersionBeforeTheHref) {
    const ResourceURI route = lumenoHrefURI({.withHref = "show/x"});
    EXPECT_EQ(route.path(), "v2/show/x");
    EXPECT_TRUE(route.queryItems().empty());
    EXPECT_EQ(route.postData(), std::nullopt);
    EXPECT_EQ(route.httpMethod(), std::nullopt);
}

TEST(LumenoHrefURI, TrimsNothing) {
    EXPECT_EQ(lumenoHrefURI({.withHref = "/show/x"}).path(), "v2//show/x");
    EXPECT_EQ(lumenoHrefURI({.withHref = ""}).path(), "v2/");
    EXPECT_EQ(lumenoHrefURI({.withHref = " show/x?a=b "}).path(), "v2/ show/x?a=b ");
}

TEST(LumenoHrefURI, AcceptsALink) {
    const Link link{.id = "i", .title = "t", .href = "video/v"};
    EXPECT_EQ(lumenoHrefURI({.withLink = link}).href, "video/v");
    EXPECT_EQ(lumenoHrefURI({.withLink = link}), lumenoHrefURI({.withHref = "video/v"}));
    EXPECT_EQ(lumenoHrefURI({.withLink = link}).path(), "v2/video/v");
}

}  // namespace
}  // namespace VanticRestKit
