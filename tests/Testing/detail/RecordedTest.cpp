#include <gtest/gtest.h>
#include <VanticRestKit/platform/error/NSError.h>
#include <VanticRestKit/Testing/detail/Recorded.h>

#include <string>
#include <utility>
#include <variant>

namespace VanticRestKit::Testing::detail {
namespace {

RecordedRequest get(std::string path) { return {.line = "GET " + std::move(path)}; }

TEST(RecordedTest, FilesAreNamedAfterTheMethodAndPath) {
    EXPECT_EQ(get("/v2/video/ZW-1.json").fileName(), "GET_v2_video_ZW-1_json");
    EXPECT_EQ(get("/v2//(é)/Az09").fileName(), "GET_v2_Az09");
}

TEST(RecordedTest, RequestsThatDifferInTheirQueryOrBodyHaveDifferentFileNames) {
    const std::string name = get("/v2/search?a=1").fileName();
    EXPECT_TRUE(name.starts_with("GET_v2_search_")) << name;
    EXPECT_NE(name, get("/v2/search?a=2").fileName());
    const RecordedRequest one{.line = "POST /v2/saved", .body = "1"};
    const RecordedRequest two{.line = "POST /v2/saved", .body = "2"};
    EXPECT_NE(one.fileName(), two.fileName());
}

TEST(RecordedTest, LongFileNamesAreShortenedAndStillDiffer) {
    const std::string path = "/" + std::string(100, 'a');
    const std::string name = get(path + "1").fileName();
    EXPECT_EQ(name.size(), 80 + 1 + 8U);
    EXPECT_EQ(name.substr(0, 81), "GET_" + std::string(76, 'a') + "_");
    EXPECT_NE(name, get(path + "2").fileName());
}

TEST(RecordedTest, AnErrorCodeOfTheTransportIsKept) {
    const Recorded written{get("/v2/time"), Answer::timedOut()};
    EXPECT_EQ(written.text(), "> GET /v2/time\n< error NSURLErrorDomain -1001\n");
    const auto read = Recorded::read(written.text());
    ASSERT_TRUE(read);
    EXPECT_EQ(std::get<URLErrorCode>(read->answer.failure()), URLErrorCode::timedOut);
}

TEST(RecordedTest, ErrorsOfOtherDomainsKeepTheirDescriptionOnOneLine) {
    const Error error = NSError("host.tests", 42, {{std::string(NSLocalizedDescriptionKey), "two\nlines"}});
    const Recorded written{get("/v2/time"), Answer::error(error)};
    EXPECT_EQ(written.text(), "> GET /v2/time\n< error host.tests 42 two lines\n");
    const auto read = Recorded::read(written.text());
    ASSERT_TRUE(read);
    const Error kept = std::get<Error>(read->answer.failure());
    EXPECT_EQ(kept.domain(), "host.tests");
    EXPECT_EQ(kept.code(), 42);
    EXPECT_EQ(kept.localizedDescription(), "two lines");
}

TEST(RecordedTest, AHeaderWithoutAValueIsKept) {
    const Recorded written{get("/v2/time"), Answer("1").withHeader("X-Empty", "")};
    const auto read = Recorded::read(written.text());
    ASSERT_TRUE(read);
    EXPECT_EQ(read->answer.headers(), written.answer.headers());
    const auto edited = Recorded::read("> GET /\n< 200\n< X-Empty\n<\n");
    ASSERT_TRUE(edited);
    EXPECT_EQ(edited->answer.headers().at("X-Empty"), "");
}

TEST(RecordedTest, OtherTextIsNotARecording) {
    for (const char* text :
         {"", "> GET /\n", "< 200\n<\n", "> GET /\n< 200\n", "> GET /\n< 200 OK\n<\n", "> GET /\n< many\n<\n",
          "> GET /\n< error NSURLErrorDomain\n", "> GET /\n< error NSURLErrorDomain x\n",
          "> GET /\n< error NSURLErrorDomain -1001x The request timed out.\n"}) {
        EXPECT_FALSE(Recorded::read(text)) << text;
    }
}

TEST(RecordedTest, ABodyOfARequestKeepsItsLines) {
    for (const char* body : {"a", "a\nb", "a\n\nb", " a\n b", "\na", "a\n", "\n", "\n\n", "> a\r\n"}) {
        const Recorded written{{.line = "POST /v2/thing", .headers = {{"A", "b"}}, .body = body},
                               Answer("{}")};
        const auto read = Recorded::read(written.text());
        ASSERT_TRUE(read);
        EXPECT_EQ(read->request.body, body);
        EXPECT_EQ(read->request.key(), written.request.key());
    }
}

TEST(RecordedTest, IndentingChangesOnlyWhiteSpaceOutsideOfStrings) {
    EXPECT_EQ(indented("{ \"a\" :\t[ ],\r\n\"b\": {}, \"c\": [1, 2]}"),
              "{\n  \"a\": [],\n  \"b\": {},\n  \"c\": [\n    1,\n    2\n  ]\n}");
    EXPECT_EQ(indented(R"(["a \" , [ \\", "b"])"), "[\n  \"a \\\" , [ \\\\\",\n  \"b\"\n]");
}

TEST(RecordedTest, TextWithSurplusBracketsIsIndentedWithoutOverrun) { EXPECT_EQ(indented("]]"), "\n]\n]"); }

}  // namespace
}  // namespace VanticRestKit::Testing::detail
