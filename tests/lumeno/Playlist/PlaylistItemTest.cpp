#include <gtest/gtest.h>
#include <VanticRestKit/lumeno/Playlist/PlaylistItem.h>

#include <platform/json/FieldRules.h>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::failureOf;
using test::shown;
using test::Strictness;
using Type = PlaylistItem::PlaylistType;

const std::string noAddress = R"({"protected":false,"sd":null,"sdLow":null,"hd720":null,"hd1080":null})";
const std::string noStreams = R"({"mpegdash":null,"fairplay":null,"hls":)" + noAddress + "}";

test::Shape type() {
    test::Shape shape = test::rawText("program", "program");
    shape.fits.insert(shape.fits.end(), {{"\"rating\"", "\"rating\""},
                                         {"\"va\"", "\"viewerAdvice\""},
                                         {"\"preroll\"", "\"preroll\""},
                                         {"\"livestream\"", "\"livestream\""},
                                         {"\"trailer\"", "\"trailer\""}});
    shape.unfit.insert(shape.unfit.end(), {{"\"viewerAdvice\"", "dataCorrupted"},
                                           {"\"Program\"", "dataCorrupted"},
                                           {"\"VA\"", "dataCorrupted"}});
    return shape;
}

test::EntityRules playlistItems() {
    return {
        .type = test::decodable<PlaylistItem>,
        .minimal = R"({"type":"trailer","streams":{"hls":{}}})",
        .fields = {{"type", "type", Strictness::required, type()},
                   {"streams", "streams", Strictness::required,
                    test::objectOf({{R"({"hls":{"sd":"$"}})",
                                     R"({"mpegdash":null,"fairplay":null,"hls":{"protected":false,"sd":"$",)"
                                     R"("sdLow":null,"hd720":null,"hd1080":null}})"},
                                    {R"({"mpegdash":null,"hls":{}})", noStreams}},
                                   {{"{}", "keyNotFound", "/hls"},
                                    {R"({"hls":null})", "valueNotFound", "/hls"},
                                    {R"({"hls":[]})", "typeMismatch", "/hls"},
                                    {R"({"hls":{},"fairplay":"x"})", "typeMismatch", "/fairplay"}})},
                   {"title", "title", Strictness::lenient, test::text()},
                   {"captionsSrcVtt", "captions.src-vtt", Strictness::lenient, test::text()},
                   {"warning", "warning", Strictness::lenient, test::text()}},
        .containers = {{"captions", Strictness::lenient}}};
}

TEST(PlaylistItem, HasFiveFields) { test::expectDeclaredFields(playlistItems()); }

TEST(PlaylistItem, FailsOnlyWithoutTypeOrStreams) { test::expectFieldsInEveryState(playlistItems()); }

TEST(PlaylistItem, HasNoCaptionsIfTheyAreNotAnObject) { test::expectContainersInEveryState(playlistItems()); }

TEST(PlaylistItem, MustBeAnObject) { test::expectAnObjectOnly(test::decodable<PlaylistItem>); }

TEST(PlaylistItem, NeedsOnlyATypeAndAnEmptyHLS) {
    EXPECT_EQ(shown<PlaylistItem>(R"({"type":"program","streams":{"hls":{}}})"),
              R"({"type":"program","streams":)" + noStreams +
                  R"(,"title":null,"captionsSrcVtt":null,"warning":null})");
}

TEST(PlaylistItem, RecognisesViewerAdviceByItsRawValueNotByItsCaseName) {
    const auto item = decoded<PlaylistItem>(R"({"type":"va","streams":{"hls":{}}})");
    ASSERT_TRUE(item);
    EXPECT_EQ(item->type, Type::viewerAdvice);
    EXPECT_EQ(failureOf<PlaylistItem>(R"({"type":"viewerAdvice","streams":{"hls":{}}})"),
              R"(dataCorrupted ["type"])");
    EXPECT_EQ(failureOf<PlaylistItem>(R"({"type":"Program","streams":{"hls":{}}})"),
              R"(dataCorrupted ["type"])");
}

TEST(PlaylistItem, FailsWithoutHLS) {
    EXPECT_EQ(failureOf<PlaylistItem>(R"({"type":"program","streams":{}})"),
              R"(keyNotFound ["streams","hls"])");
}

TEST(PlaylistItem, DecodesWithInvalidCaptions) {
    for (const char* const captions : {"\"x\"", "{\"src-vtt\":1}", "null", "[]", "{}"}) {
        const auto item = decoded<PlaylistItem>(R"({"type":"program","streams":{"hls":{}},"captions":)" +
                                                std::string(captions) + "}");
        ASSERT_TRUE(item) << captions;
        EXPECT_EQ(item->captionsSrcVtt, std::nullopt);
    }
}

TEST(PlaylistItem, ReportsAFaultyTypeBeforeFaultyStreams) {
    test::expectErrorsInOrder(playlistItems(), {{"type", "1"}, {"streams", "1"}});
    EXPECT_EQ(failureOf<PlaylistItem>(R"({"streams":{"mpegdash":1},"type":"x"})"),
              R"(dataCorrupted ["type"])");
    EXPECT_EQ(failureOf<PlaylistItem>("{}"), R"(keyNotFound ["type"])");
    // A faulty stream is reported before the missing HLS.
    EXPECT_EQ(failureOf<PlaylistItem>(R"({"type":"va","streams":{"fairplay":[]}})"),
              R"(typeMismatch ["streams","fairplay"])");
}

TEST(PlaylistItem, MakesItsListFailWithItsPath) {
    EXPECT_EQ(failureOf<std::vector<PlaylistItem>>(
                  R"([{"type":"va","streams":{"hls":{}}},{"type":"va","streams":{"hls":1}}])"),
              R"(typeMismatch [1,"streams","hls"])");
}

TEST(PlaylistItem, CanBeInitializedInDeclaredOrder) {
    const PlaylistItem item{.type = Type::rating,
                            .streams = {.hls = {.sd = "a"}},
                            .title = "b",
                            .captionsSrcVtt = "c",
                            .warning = "d"};
    EXPECT_EQ(decoded<PlaylistItem>(R"({"type":"rating","streams":{"hls":{"sd":"a"}},"title":"b",)"
                                    R"("captions":{"src-vtt":"c"},"warning":"d"})"),
              item);
}

TEST(PlaylistType, HasItsCasesInOrder) {
    const Type cases[] = {Type::program, Type::rating,     Type::viewerAdvice,
                          Type::preroll, Type::livestream, Type::trailer};
    const char* const raws[] = {"program", "rating", "va", "preroll", "livestream", "trailer"};
    ASSERT_EQ(std::size(RawTexts<Type>::cases), std::size(cases));
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        EXPECT_EQ(RawTexts<Type>::cases[i].value, cases[i]);
        EXPECT_EQ(rawValue(cases[i]), raws[i]);
        EXPECT_EQ(decoded<Type>('"' + std::string(raws[i]) + '"'), cases[i]);
    }
    EXPECT_EQ(failureOf<Type>("\"feature\""), "dataCorrupted []");
}

}  // namespace
}  // namespace VanticRestKit
