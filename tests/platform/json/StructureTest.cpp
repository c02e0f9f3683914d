// The structure that is checked for every type: brackets, commas, depth, and the end of the document.

#include <gtest/gtest.h>
#include <VanticRestKit/platform/json/Table.h>

#include <platform/json/BothEngines.h>
#include <platform/json/Nested.h>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace VanticRestKit {
namespace {

/// Has a field of every kind.
struct Album {
    std::string title{};
    std::optional<double> price{};
    std::optional<bool> isNew{};
    std::vector<std::string> tags{};
    std::vector<std::vector<std::uint64_t>> marks{};
    std::optional<std::string> link{};
    std::vector<Album> bonus{};
};

}  // namespace

template <>
const TypePlan& planOf<Album>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Album>(
        required<&Album::title>("title"),
        optional<&Album::price>("price"),
        lenient<&Album::isNew>("isNew"),
        lenient<&Album::tags>("tags"),
        lenient<&Album::marks>("marks"),
        lenientObject("links",
            lenient<&Album::link>("self")),
        lenient<&Album::bonus, keepDecodable>("bonus"));
    // clang-format on
    return plan;
}

namespace {

using test::failureOf;
using test::Nest;
using test::shown;

const std::string broken = "dataCorrupted []";
using Texts = std::vector<std::string>;

/// Contains values of every kind, including escapes and non-ASCII bytes.
const std::string album =
    "{\"title\":\"\u00e9t\u00e9 \\u00e9\\n\\\"\",\"price\":-12.5e-1,\"isNew\":true,\"tags\":[\"a\",\"\"],"
    "\"marks\":[[1,2],[]],\"links\":{\"self\":\"s\",\"other\":null},\"x\":{\"y\":[false,{}]},"
    "\"bonus\":[{\"title\":\"b\"},{\"title\":1},7]}";

TEST(TheStructureOfADocument, AllowsOneCommaBeforeAClosingBracket) {
    EXPECT_EQ(shown<Texts>(R"(["a",])"), R"(["a"])");
    EXPECT_EQ(shown<Texts>("[\"a\" , \n]"), R"(["a"])");
    EXPECT_EQ(failureOf<Album>(R"({"title":"t",})"), "");
    EXPECT_EQ(failureOf<Album>(R"({"title":"t","tags":["a",],"links":{"self":"s",},"x":[1,],"y":{"z":1,},})"),
              "");
    for (const char* const json :
         {"[,]", "[\"a\",,]", "[,\"a\"]", "[\"a\",,\"b\"]", "[\"a\",],", "[\"a\"],"}) {
        EXPECT_EQ(failureOf<Texts>(json), broken) << json;
    }
    for (const char* const rest : {"{,}", "{\"a\":1,,}", "{,\"a\":1}", "[,]", "[1,,]", "[,1]"}) {
        EXPECT_EQ(failureOf<Album>(R"({"title":"t","x":)" + std::string(rest) + "}"), broken) << rest;
        EXPECT_EQ(failureOf<Album>(R"({"title":"t","links":)" + std::string(rest) + "}"), broken) << rest;
        EXPECT_EQ(failureOf<Album>(R"({"title":"t","bonus":)" + std::string(rest) + "}"), broken) << rest;
    }
    EXPECT_EQ(failureOf<Album>("{,}"), broken);
    EXPECT_EQ(failureOf<Album>(R"({"title":"t",,})"), broken);
}

TEST(TheStructureOfADocument, CanBeginWithOneByteOrderMark) {
    const std::string mark = "\xEF\xBB\xBF";
    EXPECT_EQ(shown<Texts>(mark + "[]"), "[]");
    EXPECT_EQ(shown<Texts>(mark + " \n[]"), "[]");
    EXPECT_EQ(shown<double>(mark + "1"), "1");
    EXPECT_EQ(shown<std::optional<Album>>(mark + "null"), "null");
    EXPECT_EQ(failureOf<Texts>(mark + mark + "[]"), broken);
    EXPECT_EQ(failureOf<Texts>(" " + mark + "[]"), broken);
    EXPECT_EQ(failureOf<Texts>("[]" + mark), broken);
    EXPECT_EQ(failureOf<Texts>("[" + mark + "]"), broken);
    EXPECT_EQ(failureOf<Texts>(mark), broken);
    EXPECT_EQ(failureOf<Texts>("\xEF\xBB[]"), broken);
}

TEST(TheStructureOfADocument, AllowsFourWhitespaceCharacters) {
    std::string spread;
    bool isInside = false;
    for (const char c : album) {
        if (c == '"' && !spread.ends_with("\\")) isInside = !isInside;
        spread += c;
        if (!isInside && std::string_view("{}[],:\"").find(c) != std::string_view::npos) spread += " \t\r\n";
    }
    EXPECT_EQ(shown<Album>(spread), shown<Album>(album));
    EXPECT_EQ(shown<Album>("\r\n\t " + album + "\r\n\t "), shown<Album>(album));
    for (const char other : {'\f', '\v', '\b', '\0', '\x7f'}) {
        EXPECT_EQ(failureOf<Texts>("[" + std::string(1, other) + "]"), broken);
        EXPECT_EQ(failureOf<Texts>("[]" + std::string(1, other)), broken);
        EXPECT_EQ(failureOf<Texts>(std::string(1, other) + "[]"), broken);
    }
    EXPECT_EQ(failureOf<Texts>("\u00a0[]"), broken);
}

TEST(TheStructureOfADocument, AllowsNothingAfterTheValue) {
    for (const char* const rest : {"[]", "{}", "1", "\"\"", "]", "}", ",", ":", "null", "x", "//", "/* */"}) {
        EXPECT_EQ(failureOf<Texts>("[]" + std::string(rest)), broken) << rest;
        EXPECT_EQ(failureOf<Album>(album + rest), broken) << rest;
        EXPECT_EQ(failureOf<std::string>("\"a\"" + std::string(rest)), broken) << rest;
        EXPECT_EQ(failureOf<bool>("true " + std::string(rest)), broken) << rest;
    }
}

TEST(TheStructureOfADocument, RequiresCompleteLiterals) {
    for (const char* const word : {"t", "tru", "truE", "True", "TRUE", "truex", "true1", "fals", "falsee",
                                   "nul", "nulll", "NULL", "undefined", "nan", "yes"}) {
        EXPECT_EQ(failureOf<bool>(word), broken) << word;
        EXPECT_EQ(failureOf<std::optional<bool>>(word), broken) << word;
        for (const char* const key : {"isNew", "title", "x", "links", "bonus"}) {
            EXPECT_EQ(failureOf<Album>("{\"title\":\"t\",\"" + std::string(key) + "\":" + word + "}"), broken)
                << word;
        }
    }
}

/// Documents with the string in every possible position: read or ignored, as a value, an element or a key.
Texts documentsWith(const std::string& string) {
    return {"{\"title\":" + string + "}",
            "{\"title\":\"t\",\"links\":{\"self\":" + string + "}}",
            "{\"title\":\"t\",\"tags\":[" + string + "]}",
            "{\"title\":\"t\",\"price\":" + string + ",\"isNew\":true}",
            "{\"title\":\"t\",\"x\":" + string + "}",
            "{\"x\":" + string + ",\"title\":\"t\"}",
            "{\"title\":\"t\",\"x\":[{\"y\":" + string + "}]}",
            "{\"title\":\"t\"," + string + ":1}",
            "{\"title\":\"t\",\"links\":{" + string + ":1}}",
            "{\"title\":\"t\",\"x\":{" + string + ":1}}",
            "{\"title\":\"t\",\"bonus\":[{\"title\":" + string + "}]}"};
}

TEST(TheStructureOfADocument, IsMalformedWithAQuoteInAUnicodeEscape) {
    for (const std::size_t letters : {0U, 7U, 13U, 26U, 27U, 28U, 31U, 60U}) {
        for (std::size_t digits = 0; digits < 4; ++digits) {
            std::string escape = "\\uabcd";
            escape[2 + digits] = '"';
            // Both ways to continue end the string: at the quote in the escape, and at the last quote.
            for (const char* const rest : {"", "\"", "ab\"", ",\"ab\"", ":\"\\ud83d\\ude00\""}) {
                const std::string string = '"' + std::string(letters, 'a') + escape + rest;
                EXPECT_EQ(failureOf<Texts>('[' + string + ']'), broken) << string;
                for (const std::string& json : documentsWith(string)) {
                    EXPECT_EQ(failureOf<Album>(json), broken) << json;
                }
            }
        }
    }
    EXPECT_EQ(failureOf<Album>(R"({"a":"\ud83d\ude:"\ud83d\ude00","title":"t"})"), broken);
}

TEST(TheStructureOfADocument, AllowsAnyOtherFourBytesInAnIgnoredUnicodeEscape) {
    for (const char* const bytes :
         {"zzzz", "\\\\\\\\", "12\\u", "    ", "\n\n\n\n", "{}[]", "\xff\xff\xff\xff"}) {
        const std::string string = "\"\\u" + std::string(bytes) + '"';
        EXPECT_EQ(failureOf<Album>("{\"title\":\"t\",\"x\":" + string + "}"), "") << string;
        EXPECT_EQ(failureOf<Album>("{\"title\":" + string + "}"), "dataCorrupted [\"title\"]") << string;
    }
}

TEST(TheStructureOfADocument, IsAlsoCheckedInIgnoredParts) {
    for (const char* const value : {"[1 2]",
                                    "[1:2]",
                                    "{\"a\"}",
                                    "{\"a\":}",
                                    "{\"a\" 1}",
                                    "{a:1}",
                                    "{'a':1}",
                                    "{\"a\":1]",
                                    "[1}",
                                    "[",
                                    "{",
                                    "\"",
                                    "{\"a\":1 \"b\":2}",
                                    "{1:2}",
                                    "{\"a\":1,2}",
                                    "[tru]",
                                    "[+1]",
                                    "{null:1}",
                                    "{[]:1}",
                                    "]",
                                    "}",
                                    ":",
                                    ""}) {
        EXPECT_EQ(failureOf<Album>(R"({"title":"t","x":)" + std::string(value) + "}"), broken) << value;
        EXPECT_EQ(failureOf<Album>(R"({"title":"t","title":)" + std::string(value) + "}"), broken) << value;
        EXPECT_EQ(failureOf<Album>(R"({"title":"t","isNew":)" + std::string(value) + "}"), broken) << value;
        // A malformed document is reported as such even if a row failed before.
        EXPECT_EQ(failureOf<Album>(R"({"title":1,"x":)" + std::string(value) + "}"), broken) << value;
        EXPECT_EQ(failureOf<Texts>("[1," + std::string(value) + "]"),
                  *value == '\0' ? "typeMismatch [0]" : broken)
            << value;
    }
}

TEST(TheStructureOfADocument, RequiresAValue) {
    for (const char* const json : {"", " ", "\n", "\xEF\xBB\xBF"}) {
        EXPECT_EQ(failureOf<Album>(json), broken);
        EXPECT_EQ(failureOf<Texts>(json), broken);
        EXPECT_EQ(failureOf<std::string>(json), broken);
        EXPECT_EQ(failureOf<std::optional<Album>>(json), broken);
    }
}

std::string repeated(const std::string& text, std::size_t times) {
    std::string all;
    for (std::size_t i = 0; i < times; ++i) all += text;
    return all;
}

TEST(TheStructureOfADocument, AllowsAtMost512Levels) {
    const auto arrays = [](std::size_t levels) {
        return std::string(levels, '[') + std::string(levels, ']');
    };
    const auto objects = [](std::size_t levels) {
        return repeated("{\"a\":", levels - 1) + "{}" + std::string(levels - 1, '}');
    };
    // Ignored, one level down and two.
    for (const auto& nest : {+[](std::size_t n) { return std::string(n, '[') + std::string(n, ']'); }}) {
        EXPECT_EQ(failureOf<Album>(R"({"title":"t","x":)" + nest(511) + "}"), "");
        EXPECT_EQ(failureOf<Album>(R"({"title":"t","x":)" + nest(512) + "}"), broken);
        EXPECT_EQ(failureOf<Album>(R"({"title":"t","isNew":)" + nest(511) + "}"), "");
        EXPECT_EQ(failureOf<Album>(R"({"title":"t","isNew":)" + nest(512) + "}"), broken);
        EXPECT_EQ(failureOf<Album>(R"({"title":"t","links":{"y":)" + nest(510) + "}}"), "");
        EXPECT_EQ(failureOf<Album>(R"({"title":"t","links":{"y":)" + nest(511) + "}}"), broken);
    }
    EXPECT_EQ(failureOf<Album>(R"({"title":"t","x":)" + objects(511) + "}"), "");
    EXPECT_EQ(failureOf<Album>(R"({"title":"t","x":)" + objects(512) + "}"), broken);
    EXPECT_EQ(failureOf<Texts>(arrays(512)), "typeMismatch [0]");
    EXPECT_EQ(failureOf<Texts>(arrays(513)), broken);
    // Read, with an array of nests as the innermost level.
    const auto nests = [](std::size_t pairs, const std::string& core) {
        return repeated("{\"inside\":[", pairs) + core + repeated("]}", pairs);
    };
    EXPECT_EQ(shown<Nest>(nests(256, "")), nests(256, ""));
    EXPECT_EQ(failureOf<Nest>(nests(256, "{\"inside\":[]}")), broken);
    EXPECT_EQ(failureOf<std::vector<Nest>>("[" + nests(255, "{\"inside\":7}") + "]").substr(0, 15),
              "typeMismatch [0");
    EXPECT_EQ(failureOf<std::vector<Nest>>("[" + nests(255, "{\"inside\":[]}") + "]"), broken);
}

TEST(TheStructureOfADocument, IsMalformedAfterEveryTruncation) {
    ASSERT_EQ(failureOf<Album>(album), "");
    for (std::size_t size = 0; size < album.size(); ++size) {
        EXPECT_EQ(failureOf<Album>(album.substr(0, size)), broken) << size;
    }
}

TEST(TheStructureOfADocument, IsReadIdenticallyByBothEnginesIfAnyByteIsReplaced) {
    for (std::size_t at = 0; at < album.size(); ++at) {
        std::string damaged = album;
        for (int byte = 0; byte < 256; ++byte) {
            damaged[at] = static_cast<char>(byte);
            (void)failureOf<Album>(damaged);
        }
    }
}

TEST(TheStructureOfADocument, IsReadIdenticallyByBothEnginesIfAnyByteIsRemovedOrInserted) {
    const std::string_view bytes("\"\\{}[]:,0-e.tn \xff\0u", 18);
    for (std::size_t at = 0; at < album.size(); ++at) {
        (void)failureOf<Album>(album.substr(0, at) + album.substr(at + 1));
        for (const char byte : bytes) (void)failureOf<Album>(album.substr(0, at) + byte + album.substr(at));
    }
}

}  // namespace
}  // namespace VanticRestKit
