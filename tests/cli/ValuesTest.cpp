#include <VanticRestKit/lumeno/Theme/Theme.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "arguments/Arguments.h"
#include "arguments/Values.h"

using namespace vantic;
using VanticRestKit::LumenoSubtype;
using VanticRestKit::URLQueryItem;

namespace {

constexpr Option options[] = {required("id"), optional("limit"), repeated("item"), flag("loud")};

Arguments read(const std::vector<std::string>& words) { return Arguments::read(words, options); }

}  // namespace

TEST(Values, AnIntegerCanBeNegativeAndHas64Bits) {
    EXPECT_EQ(readInteger("limit", "0"), 0);
    EXPECT_EQ(readInteger("limit", "-9223372036854775808"), INT64_MIN);
    EXPECT_EQ(readInteger("limit", "9223372036854775807"), INT64_MAX);
}

TEST(Values, AValueThatIsNotAnIntegerIsRejected) {
    for (const char* text : {"", "1.0", "1e2", "x", " 1", "1 ", "0x1", "9223372036854775808"}) {
        EXPECT_THROW(readInteger("limit", text), UsageError) << text;
    }
}

TEST(Values, ABooleanIsTrueOrFalse) {
    EXPECT_TRUE(readBoolean("loud", "true"));
    EXPECT_FALSE(readBoolean("loud", "false"));
    for (const char* text : {"", "TRUE", "1", "no"})
        EXPECT_THROW(readBoolean("loud", text), UsageError) << text;
}

TEST(Values, AQueryItemIsSplitAtItsFirstEqualsSign) {
    EXPECT_EQ(readQueryItem("item", "a=b=c"), (URLQueryItem{.name = "a", .value = "b=c"}));
    EXPECT_EQ(readQueryItem("item", "a="), (URLQueryItem{.name = "a", .value = ""}));
    EXPECT_EQ(readQueryItem("item", "=b"), (URLQueryItem{.name = "", .value = "b"}));
}

TEST(Values, AQueryItemWithoutAnEqualsSignHasNoValue) {
    EXPECT_EQ(readQueryItem("item", "a"), (URLQueryItem{.name = "a"}));
    EXPECT_EQ(readQueryItem("item", ""), (URLQueryItem{.name = ""}));
}

TEST(Values, AnUnsignedNumberHas64BitsAndNoSign) {
    EXPECT_EQ(readUnsigned("showId", "18446744073709551615"), UINT64_MAX);
    for (const char* text : {"", "-1", "-0", "+1", "18446744073709551616"}) {
        EXPECT_THROW(readUnsigned("showId", text), UsageError) << text;
    }
}

TEST(Values, AContentIdCanContainSlashes) {
    const auto content = readContent("include", "coremedia://audioepisode/a/b//c");
    EXPECT_EQ(content.source, VanticRestKit::RecsContentSource::coremedia);
    EXPECT_EQ(content.contentType, VanticRestKit::RecsContentType::audioepisode);
    EXPECT_EQ(content.contentId, "a/b//c");
}

TEST(Values, ADatasetContainsTheStringsNumbersAndBooleansOfAnObject) {
    const auto dataset =
        readDataset("dataset", R"({"t":"x","i":7.0,"d":0.5,"b":false,"l":[1],"o":{},"n":null})");
    EXPECT_EQ(dataset, (VanticRestKit::Dictionary{{"b", false}, {"d", 0.5}, {"i", 7}, {"t", "x"}}));
    EXPECT_TRUE(readDataset("dataset", "{}").empty());
}

TEST(Values, ADatasetThatIsNotAnObjectIsRejected) {
    for (const char* text : {"", "[]", "1", "null", "{", "{} {}"}) {
        EXPECT_THROW(readDataset("dataset", text), UsageError) << text;
    }
}

TEST(Values, AnEnumerationIsGivenByItsRawValue) {
    EXPECT_EQ(readCase<LumenoSubtype>("type", "trailer"), LumenoSubtype::trailer);
    EXPECT_THROW(readCase<LumenoSubtype>("type", "Trailer"), UsageError);
}

TEST(Arguments, AnOmittedOptionIsAbsentButAnEmptyValueIsNot) {
    const Arguments none = read({});
    EXPECT_EQ(none.optionalText("limit"), std::nullopt);
    EXPECT_EQ(none.optionally("limit", readInteger), std::nullopt);
    EXPECT_TRUE(none.texts("item").empty());
    EXPECT_FALSE(none.flag("loud"));
    EXPECT_THROW(none.text("id"), UsageError);
    EXPECT_EQ(read({"--limit="}).optionalText("limit"), "");
}

TEST(Arguments, AValueIsParsedAsTheTypeOfItsOption) {
    EXPECT_EQ(read({"--limit", "-5"}).optionally("limit", readInteger), -5);
    EXPECT_EQ(read({"--limit", "true"}).optionally("limit", readBoolean), true);
    EXPECT_THROW(read({"--limit", "x"}).optionally("limit", readInteger), UsageError);
}

TEST(Arguments, ARepeatedOptionKeepsItsValuesInOrder) {
    EXPECT_EQ(read({"--item", "b", "--id=1", "--item=a", "--item", "b"}).texts("item"),
              (std::vector<std::string>{"b", "a", "b"}));
}

TEST(Arguments, AFlagCanBeGivenAloneOrWithAValue) {
    EXPECT_TRUE(read({"--loud"}).flag("loud"));
    EXPECT_TRUE(read({"--loud=true"}).flag("loud"));
    EXPECT_FALSE(read({"--loud=false"}).flag("loud"));
    EXPECT_THROW(read({"--loud", "true"}), UsageError);
}
