#include <VanticRestKit/platform/http/detail/BodyCollector.h>

#include <gtest/gtest.h>
#include <support/Codings.h>

#include <limits>

using namespace VanticRestKit;
using namespace VanticRestKit::detail;
using namespace VanticRestKit::test;

TEST(BodyCollector, GathersPieces) {
    BodyCollector body;
    body.expect(6, {});
    EXPECT_FALSE(body.add("one").has_value());
    EXPECT_FALSE(body.add("two").has_value());
    EXPECT_FALSE(body.finish().has_value());
    EXPECT_EQ(body.take().view(), "onetwo");
}

TEST(BodyCollector, GivesABodyOfNoBytes) {
    BodyCollector body;
    body.expect(std::nullopt, decodingFor("gzip"));
    EXPECT_FALSE(body.finish().has_value());
    EXPECT_EQ(body.take().size(), 0U);
}

TEST(BodyCollector, DoesNotTakeTheMemoryThatALengthClaims) {
    for (const char* coding : {"", "gzip"}) {
        BodyCollector body;
        body.expect(std::numeric_limits<std::uint64_t>::max(), decodingFor(coding));
        body.expect(std::uint64_t{1} << 40, decodingFor(coding));
    }
}

TEST(BodyCollector, KeepsABodyThatIsLargerThanItsLengthClaims) {
    const std::string text = sampleText(100 * 1000);
    BodyCollector body;
    body.expect(1, {});
    for (std::size_t at = 0; at < text.size(); at += 777) {
        ASSERT_FALSE(body.add(std::string_view(text).substr(at, 777)).has_value());
    }
    const Data data = body.take();
    EXPECT_TRUE(data.view() == text);
    EXPECT_EQ(std::string_view(data.data() + data.size(), Data::padding), std::string(Data::padding, '\0'));
}

TEST(BodyCollector, UndoesSeveralCodingsTheLastOneFirst) {
    const std::string text = sampleText(200 * 1000);
    const std::string coded = brotlied(gzipped(text));
    BodyCollector body;
    body.expect(coded.size(), decodingFor("gzip, br"));
    for (std::size_t at = 0; at < coded.size(); at += 1000) {
        ASSERT_FALSE(body.add(std::string_view(coded).substr(at, 1000)).has_value());
    }
    EXPECT_FALSE(body.finish().has_value());
    EXPECT_TRUE(body.take().view() == text);
}

TEST(BodyCollector, SaysWhenACodingIsBrokenOrHasNoEnd) {
    BodyCollector broken;
    broken.expect(std::nullopt, decodingFor("gzip"));
    ASSERT_TRUE(broken.add("no gzip at all").has_value());
    BodyCollector cut;
    cut.expect(std::nullopt, decodingFor("gzip"));
    ASSERT_FALSE(cut.add(std::string_view(gzipped("text")).substr(0, 12)).has_value());
    ASSERT_TRUE(cut.finish().has_value());
    EXPECT_EQ(cut.finish()->code, URLErrorCode::cannotDecodeContentData);
}
