#include <gtest/gtest.h>
#include <VanticRestKit/lumeno/Playlist/Streams.h>

#include <platform/json/FieldRules.h>

#include <unordered_set>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::failureOf;
using test::shown;
using test::Strictness;
using Level = StreamInfo::StreamLevel;

const std::string noAddress = R"({"protected":false,"sd":null,"sdLow":null,"hd720":null,"hd1080":null})";

test::EntityRules streamInfos() {
    return {.type = test::decodable<StreamInfo>,
            .minimal = "{}",
            .fields = {{"protected", "protected", Strictness::lenient, test::flag()},
                       {"sd", "sd", Strictness::lenient, test::text()},
                       {"sdLow", "sd-low", Strictness::lenient, test::text()},
                       {"hd720", "720", Strictness::lenient, test::text()},
                       {"hd1080", "1080", Strictness::lenient, test::text()}}};
}

test::Shape streamInfo() {
    return test::objectOf({{R"({"sd":"$","protected":true})",
                            R"({"protected":true,"sd":"$","sdLow":null,"hd720":null,"hd1080":null})"},
                           {"{}", noAddress},
                           {R"({"sd":1,"protected":1})", noAddress}});
}

test::EntityRules streams() {
    return {.type = test::decodable<Streams>,
            .minimal = R"({"hls":{}})",
            .fields = {{"mpegdash", "mpegdash", Strictness::optional, streamInfo()},
                       {"fairplay", "fairplay", Strictness::optional, streamInfo()},
                       {"hls", "hls", Strictness::required, streamInfo()}}};
}

TEST(StreamInfo, HasFiveFields) { test::expectDeclaredFields(streamInfos()); }

TEST(StreamInfo, ReadsEachFieldFromItsKeyOrLeavesItEmpty) { test::expectFieldsInEveryState(streamInfos()); }

TEST(StreamInfo, FailsOnlyIfItIsNotAnObject) { test::expectAnObjectOnly(test::decodable<StreamInfo>); }

TEST(StreamInfo, IsProtectedOnlyByABoolean) {
    EXPECT_EQ(decoded<StreamInfo>(R"({"protected":"true"})"), StreamInfo{});
    EXPECT_EQ(decoded<StreamInfo>(R"({"protected":1})"), StreamInfo{});
    EXPECT_EQ(decoded<StreamInfo>(R"({"protected":true})"), StreamInfo{.protected_ = true});
}

TEST(StreamInfo, CanBeInitializedInDeclaredOrder) {
    const StreamInfo info{.protected_ = true, .sd = "a", .sdLow = "b", .hd720 = "c", .hd1080 = "d"};
    EXPECT_EQ(valueText(info), R"({"protected":true,"sd":"a","sdLow":"b","hd720":"c","hd1080":"d"})");
    EXPECT_EQ(decoded<StreamInfo>(R"({"protected":true,"sd":"a","sd-low":"b","720":"c","1080":"d"})"), info);
}

TEST(StreamInfoAddress, OfALevelIsItsOwn) {
    const StreamInfo info{.sd = "a", .sdLow = "b", .hd720 = "c", .hd1080 = "d"};
    EXPECT_EQ(info.url({.for_ = Level::sd}), "a");
    EXPECT_EQ(info.url({.for_ = Level::sdLow}), "b");
    EXPECT_EQ(info.url({.for_ = Level::hd720}), "c");
    EXPECT_EQ(info.url({.for_ = Level::hd1080}), "d");
}

TEST(StreamInfoAddress, IsAbsentForALevelWithoutOne) {
    const StreamInfo info{.hd1080 = "d"};
    EXPECT_EQ(info.url({.for_ = Level::hd720}), std::nullopt);
    EXPECT_EQ(info.url({.for_ = Level::sd}), std::nullopt);
    EXPECT_EQ(info.url({.for_ = Level::sdLow}), std::nullopt);
}

TEST(StreamInfoAddress, IsThatOfTheBestOrWorstLevelThatHasOne) {
    const StreamInfo plain{.sd = "sd", .sdLow = "low"};
    EXPECT_EQ(plain.url({.preferHighest = true}), "sd");
    EXPECT_EQ(plain.url({.preferHighest = false}), "low");
    const StreamInfo far{.sdLow = "low", .hd1080 = "1080"};
    EXPECT_EQ(far.url({.preferHighest = true}), "1080");
    EXPECT_EQ(far.url({.preferHighest = false}), "low");
    const StreamInfo middle{.sd = "sd", .hd720 = "720"};
    EXPECT_EQ(middle.url({.preferHighest = true}), "720");
    EXPECT_EQ(middle.url({.preferHighest = false}), "sd");
}

TEST(StreamInfoAddress, IsAbsentIfNoLevelHasOne) {
    EXPECT_EQ(StreamInfo{}.url({.preferHighest = true}), std::nullopt);
    EXPECT_EQ(StreamInfo{.protected_ = true}.url({.preferHighest = false}), std::nullopt);
}

TEST(StreamInfoAddress, CanBeEmpty) {
    const StreamInfo info{.sd = "", .hd720 = "a"};
    EXPECT_EQ(info.url({.preferHighest = false}), "");
    EXPECT_EQ(info.url({.preferHighest = true}), "a");
}

TEST(StreamLevel, IsOrderedByQualityNotByCase) {
    const std::vector<Level> fromHigh = {Level::hd1080, Level::hd720, Level::sd, Level::sdLow};
    const std::vector<Level> fromLow = {Level::sdLow, Level::sd, Level::hd720, Level::hd1080};
    EXPECT_EQ(StreamInfo::StreamLevel::highToLow(), fromHigh);
    EXPECT_EQ(StreamInfo::StreamLevel::lowToHigh(), fromLow);
    std::vector<Level> inCaseOrder;
    for (const auto& row : RawTexts<Level>::cases) inCaseOrder.push_back(row.value);
    EXPECT_EQ(inCaseOrder, (std::vector<Level>{Level::sd, Level::sdLow, Level::hd720, Level::hd1080}));
}

TEST(StreamLevel, CanBeUsedInASwitchAndAsAKey) {
    const auto nameOf = [](Level level) {
        switch (level) {
            case Level::sd: return "sd";
            case Level::sdLow: return "sdLow";
            case Level::hd720: return "hd720";
            case Level::hd1080: return "hd1080";
        }
        return "";
    };
    std::unordered_set<Level> levels;
    for (const auto& row : RawTexts<Level>::cases) {
        EXPECT_EQ(nameOf(row.value), row.name);
        EXPECT_TRUE(levels.insert(row.value).second);
    }
    EXPECT_EQ(levels.count(Level::hd720), 1U);
    EXPECT_EQ(Level(), Level::sd);
}

TEST(StreamLevel, DecodesFromItsRawValue) {
    EXPECT_EQ(decoded<Level>("\"sd\""), Level::sd);
    EXPECT_EQ(decoded<Level>("\"sd-low\""), Level::sdLow);
    EXPECT_EQ(decoded<Level>("\"720\""), Level::hd720);
    EXPECT_EQ(decoded<Level>("\"1080\""), Level::hd1080);
    for (const char* const unknown : {"\"sdLow\"", "\"SD\"", "\"hd720\"", "\"\"", "\"1080 \""}) {
        EXPECT_EQ(failureOf<Level>(unknown), "dataCorrupted []") << unknown;
    }
    EXPECT_EQ(failureOf<Level>("720"), "typeMismatch []");
    EXPECT_EQ(failureOf<Level>("null"), "valueNotFound []");
}

TEST(Streams, HasThreeFields) { test::expectDeclaredFields(streams()); }

TEST(Streams, FailsWithoutHLSOrWithAStreamThatIsNotAnObject) { test::expectFieldsInEveryState(streams()); }

TEST(Streams, MustBeAnObject) { test::expectAnObjectOnly(test::decodable<Streams>); }

TEST(Streams, CanHaveHLSWithoutAnAddress) {
    EXPECT_EQ(shown<Streams>(R"({"hls":{}})"),
              R"({"mpegdash":null,"fairplay":null,"hls":)" + noAddress + "}");
}

TEST(Streams, HasNoMPEGDASHForNullAndFailsForAString) {
    EXPECT_EQ(shown<Streams>(R"({"mpegdash":null,"hls":{}})"),
              R"({"mpegdash":null,"fairplay":null,"hls":)" + noAddress + "}");
    EXPECT_EQ(failureOf<Streams>(R"({"mpegdash":"x","hls":{}})"), R"(typeMismatch ["mpegdash"])");
}

TEST(Streams, FailsWithTheErrorOfTheFirstFaultyStream) {
    test::expectErrorsInOrder(streams(), {{"mpegdash", "\"x\""}, {"fairplay", "[]"}, {"hls", "null"}});
    EXPECT_EQ(failureOf<Streams>(R"({"fairplay":1})"), R"(typeMismatch ["fairplay"])");
}

TEST(Streams, CanBeInitializedInDeclaredOrder) {
    const Streams streams{
        .mpegdash = StreamInfo{.sd = "a"}, .fairplay = StreamInfo{.sd = "b"}, .hls = {.sd = "c"}};
    EXPECT_EQ(decoded<Streams>(R"({"mpegdash":{"sd":"a"},"fairplay":{"sd":"b"},"hls":{"sd":"c"}})"), streams);
}

}  // namespace
}  // namespace VanticRestKit
