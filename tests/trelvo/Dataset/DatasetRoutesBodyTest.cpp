// A dataset in the body of the two routes that write one.

#include <gtest/gtest.h>
#include <VanticRestKit/trelvo/Dataset/DatasetRoutes.h>

#include <limits>
#include <nlohmann/json.hpp>

namespace VanticRestKit {
namespace {

/// The body of both routes, "no body" if there is none. Fails the current test if they differ.
std::string body(const Dictionary& dataset) {
    const std::optional<Data> created = CreateDatasetURI{.dataset = dataset}.postData();
    const std::optional<Data> updated = UpdateDatasetURI{.dataset = dataset}.postData();
    EXPECT_EQ(created, updated);
    return created ? std::string(created->view()) : "no body";
}

/// The JSON text that a server reads from the form field.
std::string formField(const Dictionary& dataset) {
    const std::string text = body(dataset);
    const std::string name = "dataset=";
    if (!text.starts_with(name)) return text;
    std::string json;
    for (std::size_t at = name.size(); at < text.size(); ++at) {
        if (text[at] == '%') {
            json += static_cast<char>(std::stoi(text.substr(at + 1, 2), nullptr, 16));
            at += 2;
        } else {
            json += text[at];
        }
    }
    return json;
}

TEST(DatasetBody, IsAPercentEncodedFormField) {
    EXPECT_EQ(body({{"displayName", AnyValue("Ada & Bo")}}),
              "dataset=%7B%22displayName%22%3A%22Ada%20%26%20Bo%22%7D");
}

TEST(DatasetBody, EncodesAllExceptAlphanumericsAndFourCharacters) {
    EXPECT_EQ(body({{"k", AnyValue("AZaz09-._~")}}), "dataset=%7B%22k%22%3A%22AZaz09-._~%22%7D");
    EXPECT_EQ(body({{"k", AnyValue("=+*!'(),:;@?#[]%$")}}),
              "dataset=%7B%22k%22%3A%22%3D%2B%2A%21%27%28%29%2C%3A%3B%40%3F%23%5B%5D%25%24%22%7D");
}

TEST(DatasetBody, KeepsNonASCIILetters) {
    EXPECT_EQ(body({{"k", AnyValue("\u00e9\u65e5\u0663")}}),
              "dataset=%7B%22k%22%3A%22\u00e9\u65e5\u0663%22%7D");
    EXPECT_EQ(body({{"k", AnyValue("\u2014\U0001F600")}}),
              "dataset=%7B%22k%22%3A%22%E2%80%94%F0%9F%98%80%22%7D");
}

TEST(DatasetBody, ContainsOnlyStringsNumbersAndBooleansUnderTheirKeys) {
    const Dictionary dataset{{"text", AnyValue("1")},
                             {"int", AnyValue(1)},
                             {"bool", AnyValue(true)},
                             {"double", AnyValue(1.5)},
                             {"least", AnyValue(std::numeric_limits<std::int64_t>::min())}};
    const auto json = nlohmann::json::parse(formField(dataset));
    EXPECT_EQ(json, nlohmann::json::parse(
                        R"({"text":"1","int":1,"bool":true,"double":1.5,"least":-9223372036854775808})"));
    EXPECT_TRUE(json["bool"].is_boolean());
    EXPECT_TRUE(json["int"].is_number_integer());
}

TEST(DatasetBody, WritesABooleanNeverAsANumber) {
    EXPECT_EQ(
        formField({{"a", AnyValue(true)}, {"b", AnyValue(1)}, {"c", AnyValue(false)}, {"d", AnyValue(0)}}),
        R"({"a":true,"b":1,"c":false,"d":0})");
}

TEST(DatasetBody, OmitsAValueOfAnUnsupportedTypeAndKeepsTheOthers) {
    const Dictionary dataset{{"a", AnyValue("x")},
                             {"array", AnyValue(AnyValue::Other{"[1, 2]"})},
                             {"b", AnyValue(2)},
                             {"nothing", AnyValue()},
                             {"tooGreat", AnyValue(std::numeric_limits<std::uint64_t>::max())},
                             {"z", AnyValue(false)}};
    EXPECT_EQ(formField(dataset), R"({"a":"x","b":2,"z":false})");
}

TEST(DatasetBody, IsAnEmptyObjectForADatasetWithoutSupportedValues) {
    EXPECT_EQ(body({}), "dataset=%7B%7D");
    EXPECT_EQ(body({{"array", AnyValue(AnyValue::Other{"[]"})}}), "dataset=%7B%7D");
}

TEST(DatasetBody, EscapesForJSONAndThenPercentEncodes) {
    EXPECT_EQ(formField({{"k", AnyValue("a\"b\\c/d\n\x01")}}), R"({"k":"a\"b\\c\/d\n\u0001"})");
    EXPECT_EQ(body({{"/", AnyValue("")}}), "dataset=%7B%22%5C%2F%22%3A%22%22%7D");
}

TEST(DatasetBody, IsAbsentIfANumberIsNaN) {
    EXPECT_EQ(body({{"a", AnyValue("x")}, {"b", AnyValue(std::numeric_limits<double>::quiet_NaN())}}),
              "no body");
    EXPECT_EQ(body({{"b", AnyValue(std::numeric_limits<double>::infinity())}}), "no body");
    EXPECT_EQ(body({{"b", AnyValue(-std::numeric_limits<double>::infinity())}, {"c", AnyValue(1)}}),
              "no body");
}

TEST(DatasetBody, IsAbsentIfAStringOrAKeyIsNotUTF8) {
    EXPECT_EQ(body({{"a", AnyValue("x\xff")}, {"b", AnyValue(1)}}), "no body");
    EXPECT_EQ(body({{"\xc3", AnyValue(1)}}), "no body");
}

TEST(DatasetBody, IgnoresFaultsInOmittedValues) {
    EXPECT_EQ(formField({{"other", AnyValue(AnyValue::Other{"\xff"})}, {"a", AnyValue(1)}}), R"({"a":1})");
}

}  // namespace
}  // namespace VanticRestKit
