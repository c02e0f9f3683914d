// Every kind of row that a mapping table can have, in a host's own type.

#include <gtest/gtest.h>
#include <VanticRestKit/platform/json/Table.h>

#include <platform/json/BothEngines.h>
#include <support/TemporaryZone.h>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace VanticRestKit {
namespace {

enum class Mood { calm, loud, odd };

/// Fields with defaults from the type or from the table.
struct Radio {
    bool isOn = true;
    std::uint64_t volume = 5;
    double pitch = 1.5;
    std::string name = "untitled";
    std::vector<std::string> bands = {"am", "fm"};
    std::optional<std::string> owner = "nobody";
    std::optional<Mood> memory = Mood::odd;
    Mood mood{};
    bool isLoud{};
    std::int64_t place{};
    bool isNew = true;
    std::optional<std::string> note{};
    Mood inner{};
    std::uint64_t wave = 9;
    std::optional<std::string> summary{};
    std::optional<std::string> label{};
};

void summarise(Radio& radio) { radio.summary = radio.name + "/" + radio.owner.value_or("-"); }

void putInBrackets(Radio& radio) { radio.label = "[" + radio.label.value_or("") + "]"; }

struct Clock {
    std::optional<Date> start{};
    std::string id{};
    Mood strict{};
    std::optional<Mood> perhaps{};
};

/// Fields whose reader sets them even if it rejects the string.
struct Moody {
    Mood plain{};
    Mood withDefault{};
    std::optional<Mood> filled = Mood::odd;
    std::optional<Mood> empty{};
};

bool setAndJudge(std::string_view text, Mood& mood) {
    mood = Mood::loud;
    return text == "good";
}

struct Station {
    std::string name{};
    std::string city{};
    std::optional<std::string> district{};
};

}  // namespace

template <>
struct RawTexts<Mood> {
    static constexpr RawCase<Mood> cases[] = {
        {Mood::calm, "calm", "calm"}, {Mood::loud, "loud", "LOUD"}, {Mood::odd, "odd", ""}};
};

template <>
const TypePlan& planOf<Radio>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Radio>(
        lenient<&Radio::isOn>("isOn"),
        lenient<&Radio::volume>("volume"),
        lenient<&Radio::pitch>("pitch"),
        lenient<&Radio::name>("name"),
        lenient<&Radio::bands>("bands"),
        lenient<&Radio::owner>("owner"),
        lenient<&Radio::memory, fromRaw<Mood>>("memory"),
        lenientOr<&Radio::mood, Mood::loud, fromRaw<Mood>>("mood"),
        lenientOr<&Radio::isLoud, true>("isLoud"),
        lenientOr<&Radio::place, -1>("place"),
        defaulted<&Radio::isNew>("isNew"),
        lenientObject("more",
            optional<&Radio::note>("note"),
            lenientOr<&Radio::inner, Mood::loud, fromRaw<Mood>>("inner"),
            lenient<&Radio::wave>("wave")),
        derived<&Radio::summary, summarise>(),
        derived<&Radio::label, putInBrackets>("label"));
    // clang-format on
    return plan;
}

template <>
const TypePlan& planOf<Clock>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Clock>(
        lenient<&Clock::start, deviceDate>("start"),
        required<&Clock::id, decimalOrText>("id"),
        required<&Clock::strict, fromRawOr<Mood::odd>>("strict"),
        optional<&Clock::perhaps>("perhaps"));
    // clang-format on
    return plan;
}

template <>
const TypePlan& planOf<Moody>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Moody>(
        lenient<&Moody::plain, setAndJudge>("plain"),
        lenientOr<&Moody::withDefault, Mood::odd, setAndJudge>("withDefault"),
        lenient<&Moody::filled, setAndJudge>("filled"),
        lenient<&Moody::empty, setAndJudge>("empty"));
    // clang-format on
    return plan;
}

template <>
const TypePlan& planOf<Station>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Station>(
        required<&Station::name>("name"),
        lenientObject("place",
            required<&Station::city>("city"),
            optional<&Station::district>("district")));
    // clang-format on
    return plan;
}

namespace {

using test::failureOf;
using test::shown;

const std::string fresh =
    R"({"isOn":true,"volume":5,"pitch":1.5,"name":"untitled","bands":["am","fm"],"owner":"nobody","memory":"odd",)"
    R"("mood":"loud","isLoud":true,"place":-1,"isNew":true,"note":null,"inner":"loud","wave":9,)"
    R"("summary":"untitled/nobody","label":"[]"})";

TEST(ALenientRow, KeepsTheDefaultIfTheKeyIsAbsentOrNull) {
    EXPECT_EQ(shown<Radio>("{}"), fresh);
    for (const char* key : {"isOn", "volume", "pitch", "name", "bands", "owner", "memory", "mood", "isLoud",
                            "place", "isNew", "more", "label"}) {
        EXPECT_EQ(shown<Radio>("{\"" + std::string(key) + "\":null}"), fresh) << key;
    }
    EXPECT_EQ(shown<Radio>(R"({"more":{"note":null,"inner":null,"wave":null}})"), fresh);
}

TEST(ALenientRow, KeepsTheDefaultIfTheValueIsInvalid) {
    const char* const values[] = {"1.25", "-7",  "\"?\"",        "\"\\x\"", "true",
                                  "[]",   "[1]", "[\"a\",null]", "{}",      "{\"a\":1}"};
    const std::set<std::string> fits = {"isOn:true", "pitch:1.25",     "pitch:-7",    "name:\"?\"",
                                        "bands:[]",  "owner:\"?\"",    "isLoud:true", "place:-7",
                                        "more:{}",   "more:{\"a\":1}", "label:\"?\""};
    for (const char* key : {"isOn", "volume", "pitch", "name", "bands", "owner", "memory", "mood", "isLoud",
                            "place", "more", "label"}) {
        for (const std::string value : values) {
            if (fits.contains(std::string(key) + ":" + value)) continue;
            EXPECT_EQ(shown<Radio>("{\"" + std::string(key) + "\":" + value + "}"), fresh) << key << value;
        }
    }
}

TEST(ALenientRow, KeepsTheDefaultIfItsObjectHasAnInvalidKey) {
    EXPECT_EQ(shown<Radio>(R"({"more":{"note":"n","inner":"calm","wave":7,"\ud800":1}})"), fresh);
    EXPECT_EQ(shown<Radio>(R"({"more":{"\ud800":1,"note":1,"inner":"calm","wave":7}})"), fresh);
}

TEST(ALenientRow, AcceptsAValidValue) {
    EXPECT_EQ(shown<Radio>(
                  R"({"isOn":false,"volume":0,"pitch":-2,"name":"","bands":[],"owner":"o","memory":"calm",)"
                  R"("mood":"","isLoud":false,"place":7,"isNew":false,)"
                  R"("more":{"note":"n","inner":"calm","wave":7},"label":"l"})"),
              R"({"isOn":false,"volume":0,"pitch":-2,"name":"","bands":[],"owner":"o","memory":"calm",)"
              R"("mood":"odd","isLoud":false,"place":7,"isNew":false,"note":"n","inner":"calm","wave":7,)"
              R"("summary":"/o","label":"[l]"})");
}

TEST(ADefaultedRow, FailsOnlyForAValueOfAnotherType) {
    EXPECT_EQ(shown<Radio>(R"({"isNew":null})"), fresh);
    for (const char* value : {"1", "\"true\"", "[]", "{}"}) {
        EXPECT_EQ(failureOf<Radio>("{\"isNew\":" + std::string(value) + "}"), R"(typeMismatch ["isNew"])")
            << value;
    }
}

TEST(AStrictRowInALenientObject, FailsTheEntityIfTheObjectCanBeOpened) {
    EXPECT_EQ(failureOf<Radio>(R"({"more":{"note":1}})"), R"(typeMismatch ["more","note"])");
    EXPECT_EQ(shown<Radio>(R"({"more":[{"note":1}]})"), fresh);
}

TEST(ADerivedRow, IsComputedAfterAllRowsForEveryValue) {
    EXPECT_EQ(shown<std::vector<Radio>>(R"([{"label":"a","name":"n"},{"label":1,"owner":"o"},{"name":"m"}])")
                  .find("[["),
              std::string::npos);
    const std::string two =
        shown<std::vector<Radio>>(R"([{"label":"a","name":"n"},{"label":1,"owner":"o"}])");
    EXPECT_NE(two.find(R"("summary":"n/nobody","label":"[a]")"), std::string::npos) << two;
    EXPECT_NE(two.find(R"("summary":"untitled/o","label":"[]")"), std::string::npos) << two;
}

TEST(AReader, OfANumberOrAStringKeepsANumberInDecimalNotation) {
    const test::TemporaryZone utc("UTC0");
    const auto clock = [](const char* id) {
        return shown<Clock>(R"({"strict":"calm","id":)" + std::string(id) + "}");
    };
    const auto value = [](const char* id) {
        return R"({"start":null,"id":)" + std::string(id) + R"(,"strict":"calm","perhaps":null})";
    };
    EXPECT_EQ(clock("42"), value("\"42\""));
    EXPECT_EQ(clock("4.2e1"), value("\"42\""));
    EXPECT_EQ(clock("18446744073709551615"), value("\"18446744073709551615\""));
    EXPECT_EQ(clock("\"042\""), value("\"042\""));
    EXPECT_EQ(clock("\"\""), value("\"\""));
    for (const char* id : {"true", "[]", "{}"}) EXPECT_EQ(clock(id), R"(typeMismatch ["id"])") << id;
    EXPECT_EQ(clock("null"), R"(valueNotFound ["id"])");
}

TEST(AReader, OfARawValueCanFallBackToACase) {
    const auto strict = [](const char* text) {
        return shown<Clock>(R"({"id":"i","strict":)" + std::string(text) + "}");
    };
    EXPECT_EQ(strict("\"LOUD\""), R"({"start":null,"id":"i","strict":"loud","perhaps":null})");
    EXPECT_EQ(strict("\"loud\""), R"({"start":null,"id":"i","strict":"odd","perhaps":null})");
    EXPECT_EQ(strict("1"), R"(typeMismatch ["strict"])");
    EXPECT_EQ(strict("null"), R"(valueNotFound ["strict"])");
    EXPECT_EQ(strict("\"\\ud800\""), R"(dataCorrupted ["strict"])");
}

TEST(AReader, OfAnEnumerationFailsForAnUnknownCase) {
    const auto perhaps = [](const char* text) {
        return shown<Clock>(R"({"id":"i","strict":"calm","perhaps":)" + std::string(text) + "}");
    };
    EXPECT_EQ(perhaps("\"LOUD\""), R"({"start":null,"id":"i","strict":"calm","perhaps":"loud"})");
    EXPECT_EQ(perhaps("null"), R"({"start":null,"id":"i","strict":"calm","perhaps":null})");
    EXPECT_EQ(perhaps("\"loud\""), R"(dataCorrupted ["perhaps"])");
    EXPECT_EQ(perhaps("1"), R"(typeMismatch ["perhaps"])");
    EXPECT_EQ(shown<Mood>("\"LOUD\""), "\"loud\"");
    EXPECT_EQ(shown<Mood>("\"loud\""), "dataCorrupted []");
    EXPECT_EQ(shown<std::vector<Mood>>(R"(["calm","LOUD",""])"), R"(["calm","loud","odd"])");
    EXPECT_EQ(shown<std::vector<Mood>>(R"(["calm","?"])"), "dataCorrupted [1]");
}

TEST(AReader, OfADateUsesTheZoneOfTheDevice) {
    const std::string document = R"({"id":"i","strict":"calm","start":"2020-01-02 03:04:05"})";
    {
        const test::TemporaryZone utc("UTC0");
        EXPECT_EQ(shown<Clock>(document),
                  R"({"start":"2020-01-02T03:04:05Z","id":"i","strict":"calm","perhaps":null})");
    }
    const test::TemporaryZone east("EST-10");
    EXPECT_EQ(shown<Clock>(document),
              R"({"start":"2020-01-01T17:04:05Z","id":"i","strict":"calm","perhaps":null})");
    EXPECT_EQ(shown<Clock>(R"({"id":"i","strict":"calm","start":"2020-01-02T03:04:05Z"})"),
              R"({"start":null,"id":"i","strict":"calm","perhaps":null})");
}

TEST(ALenientRow, KeepsTheDefaultIfTheReaderSetsTheFieldButRejectsTheString) {
    EXPECT_EQ(shown<Moody>(R"({"plain":"good","withDefault":"good","filled":"good","empty":"good"})"),
              R"({"plain":"loud","withDefault":"loud","filled":"loud","empty":"loud"})");
    EXPECT_EQ(shown<Moody>(R"({"plain":"bad","withDefault":"bad","filled":"bad","empty":"bad"})"),
              shown<Moody>("{}"));
}

TEST(ALenientObject, IsIgnoredIfItCannotBeOpenedWhateverFailedInsideIt) {
    const std::string unnamed = R"({"name":"n","city":"","district":null})";
    EXPECT_EQ(failureOf<Station>(R"({"name":"n","place":{"city":1}})"), R"(typeMismatch ["place","city"])");
    for (const char* const inside : {R"("city":1,"\ud800":2)", R"("\ud800":2,"city":1)", R"("\ud800":2)",
                                     R"("city":"c","district":1,"\ud800":2)"}) {
        EXPECT_EQ(shown<Station>(std::string(R"({"name":"n","place":{)") + inside + "}}"), unnamed) << inside;
    }
}

}  // namespace
}  // namespace VanticRestKit
