#include <VanticRestKit/platform/json/JSONEncoder.h>

#include <support/Vectors.h>

#include <gtest/gtest.h>

#include <limits>

namespace VanticRestKit {
namespace {

enum class Way { upwards };

}  // namespace

template <>
struct RawTexts<Way> {
    static constexpr RawCase<Way> cases[] = {{Way::upwards, "upwards", "up/wards"}};
};

namespace {

/// One value under the key "k".
template <class T>
struct Keyed {
    T value;
    void encode(JSONObjectWriter& writer) const { writer.write("k", value); }
};

template <class T>
std::string encoded(T value) {
    const Result<Data, Error> data = JSONEncoder().encode(Keyed<T>{value});
    return data ? std::string(data->view()) : data.error().as<EncodingError>()->debugDescription();
}

std::string encodedValue(const nlohmann::json& question) {
    const std::string kind = question["kind"];
    const nlohmann::json& value = question["value"];
    if (kind == "int") return encoded(value.get<std::int64_t>());
    if (kind == "bool") return encoded(value.get<bool>());
    if (kind == "double") return encoded(value.get<double>());
    return encoded(value.get<std::string>());
}

struct Nested {
    void encode(JSONObjectWriter& writer) const {
        writer.write("first", std::uint64_t{1});
        writer.writeIfPresent("absent", std::optional<std::string>());
        writer.writeIfPresent("present", std::optional<std::string>("x"));
        writer.object("inner", [](JSONObjectWriter& inner) {
            inner.write("texts", std::vector<std::string>{"a", "b/c"});
            inner.object("empty", [](JSONObjectWriter&) {});
        });
        writer.write("none", std::vector<std::string>{});
    }
};

TEST(JSONEncoder, WritesEachValueLikeThePlatform) {
    for (const nlohmann::json& line : test::vectors("json_encode.jsonl")) {
        const std::string text = encodedValue(line["in"]);
        if (test::isFree(line)) continue;
        EXPECT_EQ(text, line["out"].get<std::string>()) << line["in"];
    }
}

TEST(JSONEncoder, KeepsTheOrderOfTheCallsAndOmitsAbsentValues) {
    const Result<Data, Error> data = JSONEncoder().encode(Nested());
    ASSERT_TRUE(data);
    EXPECT_EQ(data->view(),
              R"({"first":1,"present":"x","inner":{"texts":["a","b\/c"],"empty":{}},"none":[]})");
}

TEST(JSONEncoder, WritesTextOfEveryType) {
    const std::string expected = R"({"k":"a\/b"})";
    EXPECT_EQ(encoded("a/b"), expected);
    EXPECT_EQ(encoded(std::string("a/b")), expected);
    EXPECT_EQ(encoded(std::string_view("a/b")), expected);
}

TEST(JSONEncoder, WritesAnEnumerationAsItsRawValue) {
    EXPECT_EQ(encoded(Way::upwards), R"({"k":"up\/wards"})");
    EXPECT_EQ(JSONEncoder().encode(Way::upwards)->view(), R"("up\/wards")");
}

TEST(JSONEncoder, EscapesEveryControlCharacter) {
    constexpr std::string_view digits = "0123456789abcdef";
    for (unsigned char byte = 0; byte < 0x20; ++byte) {
        if (std::string_view("\b\f\n\r\t").find(static_cast<char>(byte)) != std::string_view::npos) continue;
        const std::string escape = std::string("\\u00") + digits[byte >> 4] + digits[byte & 15];
        EXPECT_EQ(encoded(std::string(1, static_cast<char>(byte))), R"({"k":")" + escape + R"("})");
    }
    EXPECT_EQ(encoded(std::string("\b\f\n\r\t\x7F")), "{\"k\":\"\\b\\f\\n\\r\\t\x7F\"}");
}

TEST(JSONEncoder, RejectsANumberThatIsNotFinite) {
    EXPECT_EQ(encoded(std::numeric_limits<double>::quiet_NaN()), "The number is not finite.");
    EXPECT_EQ(encoded(-std::numeric_limits<double>::infinity()), "The number is not finite.");
}

TEST(JSONEncoder, RejectsAStringThatIsNotUTF8) {
    EXPECT_EQ(encoded(std::string("a\xFF")), "The text is not UTF-8.");
}

}  // namespace
}  // namespace VanticRestKit
