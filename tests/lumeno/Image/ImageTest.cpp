#include <gtest/gtest.h>
#include <VanticRestKit/Core/ResourceURI.h>
#include <VanticRestKit/lumeno/Image/Image.h>
#include <VanticRestKit/lumeno/Image/ImageRoutes.h>

#include <platform/json/FieldRules.h>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::shown;
using test::Strictness;

/// A string, or an unsigned integer that is converted to a string.
test::Shape textOrNumber() {
    test::Shape shape = test::text();
    shape.fits.insert(shape.fits.end(), {{"42", "\"42\""},
                                         {"0", "\"0\""},
                                         {"-0", "\"0\""},
                                         {"4.2e1", "\"42\""},
                                         {"18446744073709551615", "\"18446744073709551615\""}});
    shape.unfit = {{"-1"}, {"1.5"},  {"18446744073709551616"}, {"1e400"}, {"01"}, {"true"}, {"false"}, {"{}"},
                   {"[]"}, {"[42]"}, {"\"\\ud800\""}};
    return shape;
}

test::EntityRules images() {
    return {.type = test::decodable<Image>,
            .minimal = "{}",
            .fields = {{"id", "id", Strictness::lenient, textOrNumber()},
                       {"url", "url", Strictness::lenient, test::text()},
                       {"accessibilityText", "accessibilityText", Strictness::lenient, test::text()},
                       {"type", "type", Strictness::lenient, test::text()},
                       {"tags", "tags", Strictness::lenient, test::texts()},
                       {"aspectRatio", "aspectRatio", Strictness::lenient, test::text()},
                       {"width", "width", Strictness::lenient, test::unsignedNumber()},
                       {"height", "height", Strictness::lenient, test::unsignedNumber()},
                       {"altText", "altText", Strictness::lenient, test::text()}}};
}

test::EntityRules banners() {
    return {.type = test::decodable<Banner>,
            .minimal = R"({"large":"l","small":"s","link":"k"})",
            .fields = {{"largeImageHref", "large", Strictness::required, test::text()},
                       {"smallImageHref", "small", Strictness::required, test::text()},
                       {"altText", "altText", Strictness::optional, test::text()},
                       {"linkHref", "link", Strictness::required, test::text()}}};
}

TEST(Image, HasNineFields) { test::expectDeclaredFields(images()); }

TEST(Image, ReadsEachFieldFromItsKeyOrLeavesItEmpty) { test::expectFieldsInEveryState(images()); }

TEST(Image, FailsOnlyIfItIsNotAnObject) { test::expectAnObjectOnly(test::decodable<Image>); }

TEST(Image, IsEmptyForAnEmptyObject) {
    EXPECT_EQ(decoded<Image>("{}"), Image{});
    EXPECT_EQ(shown<Image>("{}"), R"({"id":null,"url":null,"accessibilityText":null,"type":null,"tags":[],)"
                                  R"("aspectRatio":null,"width":null,"height":null,"altText":null})");
}

TEST(Image, ReadsANumericIdAsADecimalString) {
    EXPECT_EQ(decoded<Image>(R"({"id":42})"), Image{.id = "42"});
    EXPECT_EQ(decoded<Image>(R"({"id":"042"})"), Image{.id = "042"});
}

TEST(Image, ReadsItsIdOnlyFromAnUnsignedNumberOrAString) {
    for (const char* const json :
         {R"({"id":true})", R"({"id":-1})", R"({"id":1.5})", R"({"id":null})", "{}"}) {
        EXPECT_EQ(decoded<Image>(json), Image{}) << json;
    }
}

TEST(Image, KeepsItsOtherFieldsIfTheTagsAreAString) {
    EXPECT_EQ(decoded<Image>(R"({"id":"i","tags":"a","url":"u"})"), (Image{.id = "i", .url = "u"}));
}

TEST(Image, CanBeInitializedInDeclaredOrder) {
    const Image image{.id = "a",
                      .url = "b",
                      .accessibilityText = "c",
                      .type = "d",
                      .tags = {"e"},
                      .aspectRatio = "f",
                      .width = 1,
                      .height = 2,
                      .altText = "g"};
    EXPECT_EQ(valueText(image),
              R"({"id":"a","url":"b","accessibilityText":"c","type":"d","tags":["e"],"aspectRatio":"f",)"
              R"("width":1,"height":2,"altText":"g"})");
    EXPECT_EQ(decoded<Image>(valueText(image)), image);
}

TEST(Image, MakesAListWithOtherElementsFail) {
    EXPECT_EQ(test::failureOf<std::vector<Image>>("[{},null]"), "typeMismatch [1]");
    EXPECT_EQ(test::failureOf<std::vector<Image>>("{}"), "typeMismatch []");
    EXPECT_EQ(decoded<std::vector<Image>>("[]"), std::vector<Image>());
    EXPECT_EQ(decoded<std::vector<Image>>(R"([{"id":1},{"id":"a"}])"),
              (std::vector<Image>{{.id = "1"}, {.id = "a"}}));
}

TEST(Banner, HasFourFields) { test::expectDeclaredFields(banners()); }

TEST(Banner, ReadsEachFieldFromItsKeyOrFails) { test::expectFieldsInEveryState(banners()); }

TEST(Banner, MustBeAnObject) { test::expectAnObjectOnly(test::decodable<Banner>); }

TEST(Banner, FailsWithTheErrorOfTheFirstFaultyField) {
    test::expectErrorsInOrder(banners(),
                              {{"large", "1"}, {"small", "null"}, {"altText", "[]"}, {"link", "{}"}});
    EXPECT_EQ(test::failureOf<Banner>("{}"), R"(keyNotFound ["large"])");
}

TEST(Banner, CanBeInitializedInDeclaredOrder) {
    const Banner banner{.largeImageHref = "a", .smallImageHref = "b", .altText = "c", .linkHref = "d"};
    EXPECT_EQ(valueText(banner),
              R"({"largeImageHref":"a","smallImageHref":"b","altText":"c","linkHref":"d"})");
    EXPECT_EQ(decoded<Banner>(R"({"large":"a","small":"b","altText":"c","link":"d"})"), banner);
}

TEST(AvatarURI, HasOnlyAPathWithATrailingSlash) {
    const ResourceURI route = AvatarURI{};
    EXPECT_EQ(route.path(), "v3/image/avatar/");
    EXPECT_TRUE(route.queryItems().empty());
    EXPECT_EQ(route.postData(), std::nullopt);
    EXPECT_EQ(route.httpMethod(), std::nullopt);
}

}  // namespace
}  // namespace VanticRestKit
