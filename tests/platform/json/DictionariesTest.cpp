// Free-form objects as fields.

#include <gtest/gtest.h>
#include <VanticRestKit/platform/error/AnyValue.h>
#include <VanticRestKit/platform/json/Table.h>

#include <platform/json/BothEngines.h>
#include <optional>
#include <string>

namespace VanticRestKit {
namespace {

struct Settings {
    Dictionary needed{};
    Dictionary some = {{"from", AnyValue("the start")}};
    std::optional<Dictionary> perhaps{};
    std::optional<Dictionary> ifThere{};
};

}  // namespace

template <>
const TypePlan& planOf<Settings>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Settings>(
        required<&Settings::needed>("needed"),
        lenient<&Settings::some>("some"),
        lenient<&Settings::perhaps>("perhaps"),
        optional<&Settings::ifThere>("ifThere"));
    // clang-format on
    return plan;
}

namespace {

using test::failureOf;
using test::shown;

std::string settings(const std::string& members) { return shown<Settings>("{" + members + "}"); }

std::string value(const std::string& needed, const std::string& some = R"({"from":"the start"})",
                  const std::string& perhaps = "null") {
    return R"({"needed":)" + needed + R"(,"some":)" + some + R"(,"perhaps":)" + perhaps +
           R"(,"ifThere":null})";
}

TEST(ADictionary, HoldsStringsNumbersAndBooleans) {
    EXPECT_EQ(settings(R"("needed":{"c":"x","b":-7,"a":true,"d":1.5,"e":1e2,"f":""})"),
              value(R"({"a":true,"b":-7,"c":"x","d":1.5,"e":100,"f":""})"));
    EXPECT_EQ(settings(R"("needed":{},"some":{"x":1},"perhaps":{"y":2})"),
              value("{}", R"({"x":1})", R"({"y":2})"));
}

TEST(ADictionary, LeavesOutWhatItCannotHold) {
    EXPECT_EQ(settings(R"("needed":{"a":null,"b":[1],"c":{"d":1},"e":"\ud800","f":01,"g":1e400,"h":"kept"})"),
              value(R"({"h":"kept"})"));
}

TEST(ADictionary, UsesTheFirstOfTwoEqualKeys) {
    EXPECT_EQ(settings(R"("needed":{"a":1,"\u0061":2})"), value(R"({"a":1})"));
    EXPECT_EQ(settings(R"("needed":{"a":null,"a":2})"), value("{}"));
}

TEST(ADictionary, FailsIfAKeyIsNotAValidString) {
    const std::string bad = R"({"a":1,"\ud800":2})";
    EXPECT_EQ(failureOf<Settings>(R"({"needed":)" + bad + "}"), R"(dataCorrupted ["needed"])");
    EXPECT_EQ(failureOf<Settings>(R"({"needed":{},"ifThere":)" + bad + "}"), R"(dataCorrupted ["ifThere"])");
    EXPECT_EQ(settings(R"("needed":{},"some":)" + bad), value("{}"));
    EXPECT_EQ(settings(R"("needed":{},"perhaps":)" + bad), value("{}"));
    // Deeper values are not read.
    EXPECT_EQ(settings(R"("needed":{"x":)" + bad + R"(,"y":1})"), value(R"({"y":1})"));
}

TEST(ADictionary, MustBeAnObject) {
    for (const char* const other : {"1", "\"x\"", "true", "[]", "[{}]"}) {
        EXPECT_EQ(failureOf<Settings>(R"({"needed":)" + std::string(other) + "}"),
                  R"(typeMismatch ["needed"])");
        EXPECT_EQ(settings(R"("needed":{},"some":)" + std::string(other)), value("{}"));
        EXPECT_EQ(settings(R"("needed":{},"perhaps":)" + std::string(other)), value("{}"));
    }
    EXPECT_EQ(failureOf<Settings>(R"({"needed":null})"), R"(valueNotFound ["needed"])");
    EXPECT_EQ(failureOf<Settings>("{}"), R"(keyNotFound ["needed"])");
    EXPECT_EQ(settings(R"("needed":{},"some":null,"perhaps":null,"ifThere":null)"), value("{}"));
}

TEST(ADictionary, FailsIfTheDocumentIsMalformed) {
    for (const char* const broken : {"{\"a\":tru}", "{\"a\"}", "{\"a\":1,,}", "{\"a\":[1}}", "{\"a\":\"x}"}) {
        EXPECT_EQ(failureOf<Settings>(R"({"needed":)" + std::string(broken) + "}"), "dataCorrupted []")
            << broken;
    }
    EXPECT_EQ(settings(R"("needed":{"a":1,})"), value(R"({"a":1})"));
}

}  // namespace
}  // namespace VanticRestKit
