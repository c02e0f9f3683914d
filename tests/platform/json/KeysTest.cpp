// Which key of an object fills which row, and the effect of an invalid key.

#include <gtest/gtest.h>
#include <VanticRestKit/platform/json/Table.h>

#include <platform/json/BothEngines.h>
#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {
namespace {

struct Person {
    std::string id{};
    std::optional<std::string> name{};
    std::optional<std::string> street{};
    std::optional<std::string> room{};
    std::optional<std::uint64_t> floor{};
    std::vector<std::string> bells{};
    std::optional<std::string> town{};
    std::optional<std::string> job{};
};

struct People {
    std::vector<Person> people{};
    std::vector<Person> friends{};
};

/// Keys with lengths around the limit of the inline comparison, and a key that contains a quote.
struct Lengths {
    std::optional<std::string> empty{};
    std::optional<std::string> of29{};
    std::optional<std::string> of30{};
    std::optional<std::string> of31{};
    std::optional<std::string> of64{};
    std::optional<std::string> quoted{};
    std::optional<std::string> slashed{};
    std::optional<std::string> high{};
};

/// Keys of the same length with the same beginning and end.
struct Alike {
    std::optional<std::string> first{};
    std::optional<std::string> second{};
    std::optional<std::string> third{};
};

constexpr std::string_view key29 = "aaaaaaaaaaaaaaaaaaaaaaaaaaaaa";
constexpr std::string_view key30 = "bbbbbbbbbbbbbbbbbbbbbbbbbbbbbb";
constexpr std::string_view key31 = "ccccccccccccccccccccccccccccccc";
constexpr std::string_view key64 = "dddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddd";

}  // namespace

template <>
const TypePlan& planOf<Person>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Person>(
        required<&Person::id>("id"),
        lenient<&Person::name>("name"),
        unread("secret"),
        lenientObject("address",
            lenient<&Person::street>("street"),
            lenientObject("flat",
                lenient<&Person::room>("room"),
                lenient<&Person::floor>("floor"),
                lenient<&Person::bells>("bells")),
            lenient<&Person::town>("town")),
        requiredObject("work",
            lenient<&Person::job>("job")));
    // clang-format on
    return plan;
}

template <>
const TypePlan& planOf<People>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<People>(
        required<&People::people>("people"),
        lenient<&People::friends, keepDecodable>("friends"));
    // clang-format on
    return plan;
}

template <>
const TypePlan& planOf<Lengths>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Lengths>(
        lenient<&Lengths::empty>(""),
        lenient<&Lengths::of29>(key29),
        lenient<&Lengths::of30>(key30),
        lenient<&Lengths::of31>(key31),
        lenient<&Lengths::of64>(key64),
        lenient<&Lengths::quoted>("a\"b"),
        lenient<&Lengths::slashed>("a\\b"),
        lenient<&Lengths::high>("\u00e9t\u00e9"));
    // clang-format on
    return plan;
}

template <>
const TypePlan& planOf<Alike>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Alike>(
        lenient<&Alike::first>("displayDurationFirstAccessible"),
        lenient<&Alike::second>("displayDurationOtherAccessible"),
        lenient<&Alike::third>("displayDurationThirdAccessible"));
    // clang-format on
    return plan;
}

namespace {

using test::failureOf;
using test::shown;

/// A person with a job and without an address.
std::string person(const std::string& id, const std::string& rest = "") {
    return R"({"id":")" + id +
           R"(","name":null,"street":null,"room":null,"floor":null,"bells":[],"town":null,)" +
           (rest.empty() ? R"("job":null)" : rest) + "}";
}

/// Keys that are not valid strings.
const char* const invalidKeys[] = {
    R"("\ud800")", R"("\udc00\ud800")", R"("\x")",  R"("a\u12g4")",     "\"\x01\"",
    "\"\t\"",      "\"\xff\"",          "\"\xc3\"", "\"\xed\xa0\x80\"",
};

TEST(AKey, IsUsedOnlyTheFirstTime) {
    EXPECT_EQ(shown<Person>(R"({"id":"a","id":"b","work":{}})"), person("a"));
    EXPECT_EQ(shown<Person>(R"({"id":"a","id":1,"work":{}})"), person("a"));
    EXPECT_EQ(failureOf<Person>(R"({"id":1,"id":"b","work":{}})"), R"(typeMismatch ["id"])");
    EXPECT_EQ(failureOf<Person>(R"({"id":null,"id":"b","work":{}})"), R"(valueNotFound ["id"])");
    EXPECT_EQ(shown<Person>(R"({"id":"a","name":1,"name":"n","work":{}})"), person("a"));
    EXPECT_EQ(shown<Person>(R"({"id":"a","name":null,"name":"n","work":{}})"), person("a"));
    EXPECT_EQ(shown<Person>(R"({"id":"a","work":{"job":"j"},"work":{"job":"k"}})"),
              person("a", R"("job":"j")"));
    EXPECT_EQ(shown<Person>(R"({"id":"a","work":{"job":"j","job":"k"},"work":1})"),
              person("a", R"("job":"j")"));
    EXPECT_EQ(failureOf<Person>(R"({"id":"a","work":1,"work":{}})"), R"(typeMismatch ["work"])");
    EXPECT_EQ(shown<Person>(R"({"id":"a","address":1,"address":{"street":"s"},"work":{}})"), person("a"));
    EXPECT_EQ(shown<Person>(R"({"secret":1,"id":"a","secret":{},"work":{}})"), person("a"));
}

TEST(AKey, IsUsedOnlyTheFirstTimeHoweverItIsEscaped) {
    EXPECT_EQ(shown<Person>(R"({"\u0069d":"a","id":"b","work":{}})"), person("a"));
    EXPECT_EQ(shown<Person>(R"({"id":"a","\u0069d":"b","work":{}})"), person("a"));
    EXPECT_EQ(shown<Person>(R"({"id":"a","work":{},"w\u006Frk":{"job":"j"}})"), person("a"));
}

TEST(AKey, MatchesWithEscapes) {
    EXPECT_EQ(shown<Person>(R"({"\u0069\u0064":"a","\u0077ork":{"j\u006fb":"j"}})"),
              person("a", R"("job":"j")"));
    EXPECT_EQ(
        shown<Lengths>(R"({"a\"b":"q","a\\b":"s","\u00e9t\u00E9":"h"})"),
        R"({"empty":null,"of29":null,"of30":null,"of31":null,"of64":null,"quoted":"q","slashed":"s","high":"h"})");
    EXPECT_EQ(
        shown<Lengths>("{\"a\\u0022b\":\"q\",\"a\\u005cb\":\"s\",\"\u00e9t\u00e9\":\"h\"}"),
        R"({"empty":null,"of29":null,"of30":null,"of31":null,"of64":null,"quoted":"q","slashed":"s","high":"h"})");
}

TEST(AKey, MatchesOnlyInFull) {
    for (const char* key : {"i", "idd", "Id", "ID", "id ", " id", "id\\u0000", "id\\n"}) {
        EXPECT_EQ(failureOf<Person>(std::string("{\"work\":{},\"") + key + "\":\"a\"}"),
                  R"(keyNotFound ["id"])")
            << key;
    }
}

TEST(AKey, CanHaveAnyLength) {
    EXPECT_EQ(
        shown<Lengths>("{\"\":\"0\",\"" + std::string(key29) + "\":\"29\",\"" + std::string(key30) +
                       "\":\"30\",\"" + std::string(key31) + "\":\"31\",\"" + std::string(key64) +
                       "\":\"64\"}"),
        R"({"empty":"0","of29":"29","of30":"30","of31":"31","of64":"64","quoted":null,"slashed":null,"high":null})");
    EXPECT_EQ(
        shown<Lengths>("{\"" + std::string(key29.substr(1)) + "\":\"28\",\"" + std::string(key30) +
                       "b\":\"31\",\"" + std::string(key64.substr(1)) + "\":\"63\"}"),
        R"({"empty":null,"of29":null,"of30":null,"of31":null,"of64":null,"quoted":null,"slashed":null,"high":null})");
}

TEST(AKey, WithAQuoteOrABackslashMatchesOnlyIfEscaped) {
    // The key order is predicted from the previous element.
    EXPECT_EQ(failureOf<std::vector<Lengths>>(R"([{"a\"b":"q"},{"a"b":"q"}])"), "dataCorrupted []");
    const std::string none =
        R"({"empty":null,"of29":null,"of30":null,"of31":null,"of64":null,"quoted":null,"slashed":null,"high":null})";
    EXPECT_EQ(shown<std::vector<Lengths>>(R"([{"a\\b":1},{"a\b":"q"}])"), "[" + none + "," + none + "]");
}

TEST(AKey, DiffersFromKeysWithTheSameBeginningAndEnd) {
    EXPECT_EQ(shown<Alike>(R"({"displayDurationThirdAccessible":"3","displayDurationFirstAccessible":"1",)"
                           R"("displayDurationOtherAccessible":"2","displayDurationAgainAccessible":"4"})"),
              R"({"first":"1","second":"2","third":"3"})");
}

TEST(AnInvalidKey, MakesTheRootFail) {
    for (const std::string key : invalidKeys) {
        EXPECT_EQ(failureOf<Person>("{\"id\":\"a\",\"work\":{}," + key + ":1}"), "dataCorrupted []") << key;
        EXPECT_EQ(failureOf<Person>("{" + key + ":1,\"id\":\"a\",\"work\":{}}"), "dataCorrupted []") << key;
        // Opening the object comes before every row.
        EXPECT_EQ(failureOf<Person>("{\"id\":1," + key + ":1}"), "dataCorrupted []") << key;
    }
}

TEST(AnInvalidKey, MakesARequiredObjectFail) {
    for (const std::string key : invalidKeys) {
        EXPECT_EQ(failureOf<Person>("{\"id\":\"a\",\"work\":{\"job\":\"j\"," + key + ":1}}"),
                  R"(dataCorrupted ["work"])")
            << key;
    }
}

TEST(AnInvalidKey, ResetsTheFieldsFilledByALenientObject) {
    const std::string flat = R"("flat":{"room":"r","floor":3,"bells":["b"]})";
    for (const std::string key : invalidKeys) {
        const std::string bad = key + ":1";
        for (const std::string& inside :
             {bad, "\"street\":\"s\",\"town\":\"t\"," + bad, "\"street\":\"s\"," + bad + ",\"town\":\"t\"",
              bad + ",\"street\":\"s\"," + flat, flat + ",\"town\":\"t\"," + bad,
              bad + "," + bad + "," + flat}) {
            EXPECT_EQ(shown<Person>("{\"id\":\"a\",\"address\":{" + inside + "},\"work\":{\"job\":\"j\"}}"),
                      person("a", R"("job":"j")"))
                << inside;
        }
    }
}

TEST(AnInvalidKey, ResetsOnlyTheInnermostObject) {
    for (const std::string key : invalidKeys) {
        EXPECT_EQ(
            shown<Person>(R"({"id":"a","address":{"street":"s","flat":{"room":"r","bells":["b"],)" + key +
                          R"(:{}},"town":"t"},"work":{}})"),
            R"({"id":"a","name":null,"street":"s","room":null,"floor":null,"bells":[],"town":"t","job":null})")
            << key;
    }
}

TEST(AnInvalidKey, IsIgnoredInAnObjectThatIsNotRead) {
    for (const std::string key : invalidKeys) {
        const std::string bad = "{" + key + ":1}";
        EXPECT_EQ(shown<Person>("{\"id\":\"a\",\"work\":{},\"other\":" + bad + "}"), person("a")) << key;
        EXPECT_EQ(shown<Person>("{\"id\":\"a\",\"work\":{},\"secret\":" + bad + "}"), person("a")) << key;
        EXPECT_EQ(shown<Person>("{\"id\":\"a\",\"work\":{},\"work\":" + bad + "}"), person("a")) << key;
        EXPECT_EQ(shown<Person>("{\"id\":\"a\",\"work\":{},\"name\":" + bad + "}"), person("a")) << key;
        EXPECT_EQ(shown<Person>("{\"id\":\"a\",\"work\":{\"job\":" + bad + "}}"), person("a")) << key;
        EXPECT_EQ(shown<Person>("{\"id\":\"a\",\"work\":{\"x\":[" + bad + "]}}"), person("a")) << key;
    }
}

TEST(AnInvalidKey, FailsItsElementAndTheListUnlessTheListDropsTheElement) {
    const std::string good = R"({"id":"a","work":{}})";
    for (const std::string key : invalidKeys) {
        const std::string bad = "{\"id\":\"b\",\"work\":{}," + key + ":1}";
        EXPECT_EQ(failureOf<People>("{\"people\":[" + good + "," + bad + "]}"),
                  R"(dataCorrupted ["people",1])");
        EXPECT_EQ(shown<People>("{\"people\":[],\"friends\":[" + good + "," + bad + "," + good + "]}"),
                  "{\"people\":[],\"friends\":[" + person("a") + "," + person("a") + "]}");
    }
}

TEST(KeysInAList, CanHaveADifferentOrderInEachElement) {
    const std::vector<std::string> members = {R"("id":"a")", R"("name":"n")", R"("work":{"job":"j"})",
                                              R"("address":{"town":"t","street":"s"})"};
    const std::string whole =
        R"({"id":"a","name":"n","street":"s","room":null,"floor":null,"bells":[],"town":"t","job":"j"})";
    std::vector<std::size_t> order = {0, 1, 2, 3};
    std::string document = "{\"people\":[";
    std::string value = "{\"people\":[";
    do {
        std::string element = "{\"extra\":1";
        for (const std::size_t i : order) element += "," + members[i];
        document += element + "},";
        value += whole + ",";
    } while (std::next_permutation(order.begin(), order.end()));
    document.back() = value.back() = ']';
    EXPECT_EQ(shown<People>(document + "}"), value + ",\"friends\":[]}");
}

TEST(KeysInAList, CanBeMissingOrRepeatedInSomeElements) {
    EXPECT_EQ(
        shown<std::vector<Person>>(
            R"([{"id":"a","name":"n","work":{}},{"id":"b","work":{}},{"name":"m","id":"c","work":{}},)"
            R"({"id":"d","id":"e","name":"o","work":{}},{"id":"f","name":1,"work":{"job":"j"},"name":"p"}])"),
        "[" + person("a").replace(17, 4, "\"n\"") + "," + person("b") + "," +
            person("c").replace(17, 4, "\"m\"") + "," + person("d").replace(17, 4, "\"o\"") + "," +
            person("f", R"("job":"j")") + "]");
}

}  // namespace
}  // namespace VanticRestKit
