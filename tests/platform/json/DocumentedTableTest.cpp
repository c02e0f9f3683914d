// A host's own type with a mapping table, written as documented in Table.h.

#include <gtest/gtest.h>
#include <VanticRestKit/platform/json/Table.h>

#include <platform/json/BothEngines.h>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

struct Song {
    std::string title{};
    std::optional<std::uint64_t> seconds{};
    std::vector<std::string> tags{};
};

template <>
const VanticRestKit::TypePlan& VanticRestKit::planOf<Song>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Song>(
        required<&Song::title>("title"),
        optional<&Song::seconds>("seconds"),
        requiredObject("_embedded",
            lenient<&Song::tags>("tags")));
    // clang-format on
    return plan;
}

struct Poem {
    std::string title{};
};

namespace VanticRestKit {
namespace {

static_assert(Decodable<Song>);
static_assert(!Decodable<Poem>, "a type without a mapping table");
static_assert(Decodable<double> && Decodable<std::vector<Song>> && Decodable<std::optional<Song>>);
static_assert(Decodable<int> && !Decodable<float> && !Decodable<const char*>);

using test::failureOf;
using test::shown;

TEST(ATableOfAHost, FillsTheFieldsByTheirKeys) {
    const std::optional<Song> song =
        test::decoded<Song>(R"({"title":"Kestrel","seconds":201,"_embedded":{"tags":["slow","old"]}})");
    ASSERT_TRUE(song);
    EXPECT_EQ(song->title, "Kestrel");
    EXPECT_EQ(song->seconds, 201U);
    EXPECT_EQ(song->tags, (std::vector<std::string>{"slow", "old"}));
}

TEST(ATableOfAHost, ShowsAValueUnderItsDeclaredNamesInDeclaredOrder) {
    EXPECT_EQ(shown<Song>(R"({"_embedded":{"tags":["slow"]},"seconds":201,"title":"Kestrel"})"),
              R"({"title":"Kestrel","seconds":201,"tags":["slow"]})");
    EXPECT_EQ(shown<Song>(R"({"_embedded":{},"title":""})"), R"({"title":"","seconds":null,"tags":[]})");
}

TEST(ATableOfAHost, FailsWithThePathOfARequiredKey) {
    EXPECT_EQ(failureOf<Song>(R"({"_embedded":{}})"), R"(keyNotFound ["title"])");
    EXPECT_EQ(failureOf<Song>(R"({"title":null,"_embedded":{}})"), R"(valueNotFound ["title"])");
    EXPECT_EQ(failureOf<Song>(R"({"title":1,"_embedded":{}})"), R"(typeMismatch ["title"])");
    EXPECT_EQ(failureOf<Song>(R"({"title":"a"})"), R"(keyNotFound ["_embedded"])");
    EXPECT_EQ(failureOf<Song>(R"({"title":"a","_embedded":null})"), R"(valueNotFound ["_embedded"])");
    EXPECT_EQ(failureOf<Song>(R"({"title":"a","_embedded":[]})"), R"(typeMismatch ["_embedded"])");
}

TEST(ATableOfAHost, FailsIfAnOptionalKeyHasAnotherType) {
    EXPECT_EQ(shown<Song>(R"({"title":"a","seconds":null,"_embedded":{}})"),
              R"({"title":"a","seconds":null,"tags":[]})");
    EXPECT_EQ(failureOf<Song>(R"({"title":"a","seconds":"1","_embedded":{}})"),
              R"(typeMismatch ["seconds"])");
    EXPECT_EQ(failureOf<Song>(R"({"title":"a","seconds":-1,"_embedded":{}})"),
              R"(dataCorrupted ["seconds"])");
}

TEST(ATableOfAHost, IgnoresEveryFaultOfALenientKey) {
    for (const char* tags : {"null", "1", "\"a\"", "{}", "[1]", "[\"a\",null]", "[\"\\ud800\"]"}) {
        EXPECT_EQ(shown<Song>(std::string(R"({"title":"a","_embedded":{"tags":)") + tags + "}}"),
                  R"({"title":"a","seconds":null,"tags":[]})")
            << tags;
    }
}

TEST(ATableOfAHost, ReportsTheErrorOfTheFirstRowWhateverTheOrderOfTheDocument) {
    EXPECT_EQ(failureOf<Song>(R"({"_embedded":1,"seconds":true,"title":2})"), R"(typeMismatch ["title"])");
    EXPECT_EQ(failureOf<Song>(R"({"_embedded":1,"seconds":true,"title":"a"})"),
              R"(typeMismatch ["seconds"])");
    EXPECT_EQ(failureOf<Song>(R"({"_embedded":1,"seconds":2,"title":"a"})"), R"(typeMismatch ["_embedded"])");
}

TEST(ATableOfAHost, AlsoDecodesListsOfTheType) {
    EXPECT_EQ(shown<std::vector<Song>>("[]"), "[]");
    EXPECT_EQ(shown<std::vector<Song>>(R"([{"title":"a","_embedded":{}},{"title":"b","_embedded":{}}])"),
              R"([{"title":"a","seconds":null,"tags":[]},{"title":"b","seconds":null,"tags":[]}])");
    EXPECT_EQ(failureOf<std::vector<Song>>(R"([{"title":"a","_embedded":{}},{}])"),
              R"(keyNotFound [1,"title"])");
    EXPECT_EQ(failureOf<std::vector<Song>>("[null]"), "typeMismatch [0]");
    EXPECT_EQ(failureOf<std::vector<Song>>("[[]]"), "typeMismatch [0]");
}

TEST(ATableOfAHost, DecodesAnOptionalOfTheTypeFromNull) {
    EXPECT_EQ(shown<std::optional<Song>>("null"), "null");
    EXPECT_EQ(shown<std::optional<Song>>(R"({"title":"a","_embedded":{}})"),
              R"({"title":"a","seconds":null,"tags":[]})");
    EXPECT_EQ(failureOf<std::optional<Song>>("{}"), R"(keyNotFound ["title"])");
    EXPECT_EQ(failureOf<std::optional<Song>>("nul"), "dataCorrupted []");
    EXPECT_EQ(failureOf<std::optional<Song>>("null null"), "dataCorrupted []");
    EXPECT_EQ(failureOf<std::optional<Song>>("[]"), "typeMismatch []");
}

}  // namespace
}  // namespace VanticRestKit
