// The diagnosis of a document: every tolerated fault, and the fault that made it fail.

#include <gtest/gtest.h>
#include <VanticRestKit/platform/json/Diagnosis.h>
#include <VanticRestKit/platform/json/Table.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

// Reported by their names without a namespace.
struct Track {
    std::string name{};
    std::optional<std::uint64_t> seconds{};
};

enum class Format { vinyl, tape };

struct Record {
    std::string title{};
    Format format{};
    std::optional<Format> second{};
    std::optional<std::uint64_t> year{};
    bool isOnSale{};
    bool isKnown{};
    std::int64_t stock{};
    std::vector<std::string> tags{};
    std::optional<std::string> seller{};
    std::optional<std::string> town{};
    std::optional<Track> single{};
    std::vector<Track> tracks{};
    std::vector<Track> extras{};
    std::optional<std::vector<Track>> hidden{};
    std::optional<Date> published{};
    std::optional<std::string> note{};
    std::string code = "-";
};

/// A list of elements with their own defaults, in a type with a derived field.
struct Book {
    std::string title = "a title that is too long to be held without an allocation";
};
struct Shelf {
    std::vector<Book> books{};
    std::optional<std::string> label{};
};

template <>
struct RawTexts<Format> {
    static constexpr RawCase<Format> cases[] = {{Format::vinyl, "vinyl", "v"}, {Format::tape, "tape", "t"}};
};

template <>
const TypePlan& planOf<Track>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Track>(
        required<&Track::name>("name"),
        lenient<&Track::seconds>("seconds"));
    // clang-format on
    return plan;
}

template <>
const TypePlan& planOf<Record>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Record>(
        required<&Record::title>("title"),
        lenientOr<&Record::format, Format::tape, fromRaw<Format>>("format"),
        lenient<&Record::second, fromRaw<Format>>("second"),
        lenient<&Record::year>("year"),
        lenient<&Record::isOnSale>("isOnSale"),
        lenientOr<&Record::isKnown, true>("isKnown"),
        lenientOr<&Record::stock, -1>("stock"),
        lenient<&Record::tags>("tags"),
        lenientObject("shop",
            lenient<&Record::seller>("seller"),
            lenientObject("place",
                lenient<&Record::town>("town"))),
        lenient<&Record::single>("single"),
        lenient<&Record::tracks>("tracks"),
        lenient<&Record::extras, keepDecodable>("extras"),
        lenient<&Record::hidden>("hidden"),
        lenient<&Record::published, deviceDate>("published"),
        optional<&Record::note>("note"),
        defaulted<&Record::code, decimalOrText>("code"));
    // clang-format on
    return plan;
}

template <>
const TypePlan& planOf<Book>() {
    static const TypePlan& plan = mapping::object<Book>(mapping::lenient<&Book::title>("title"));
    return plan;
}

void labelByCount(Shelf& shelf) { shelf.label = std::to_string(shelf.books.size()); }

template <>
const TypePlan& planOf<Shelf>() {
    using namespace mapping;
    static const TypePlan& plan =
        object<Shelf>(lenient<&Shelf::books>("books"), derived<&Shelf::label, labelByCount>("label"));
    return plan;
}

namespace {

std::string pathText(const CodingPath& path) {
    std::string text;
    for (const CodingKey& step : path) {
        text += "/" + (step.key() != nullptr ? *step.key() : std::to_string(*step.index()));
    }
    return text;
}

/// One fault per line: its path, presence, what was expected, what was found and the resulting value.
std::string faultsOf(const Diagnosis& diagnosis) {
    std::string text;
    for (const Fault& fault : diagnosis.faults) {
        text += pathText(fault.path) + " " + nameOf(fault.presence) + ": " + fault.expected + ", " +
                fault.found + ", " + fault.became + "\n";
    }
    return text;
}

std::string faults(const std::string& members) {
    return faultsOf(
        diagnose<Record>(Data("{\"title\":\"t\"" + (members.empty() ? "" : "," + members) + "}")));
}

std::string faultsOfDocument(std::string_view json) { return faultsOf(diagnose<Record>(Data(json))); }

TEST(Explaining, ReportsNothingForAValidDocument) {
    EXPECT_EQ(
        faults(
            R"("format":"v","second":"t","year":1999,"isOnSale":true,"isKnown":false,"stock":3,"tags":["a"],)"
            R"("shop":{"seller":"s","place":{"town":"x"}},"single":{"name":"n"},"tracks":[{"name":"n"}],)"
            R"("extras":[],"hidden":[],"published":"2020-01-02 03:04:05","note":"n","code":7)"),
        "");
}

TEST(Explaining, DoesNotReportAbsentKeysNullsAndUnknownKeys) {
    EXPECT_EQ(faults(""), "");
    EXPECT_EQ(
        faults(
            R"("format":null,"second":null,"year":null,"isOnSale":null,"isKnown":null,"stock":null,"tags":null,)"
            R"("shop":null,"single":null,"tracks":null,"extras":null,"hidden":null,"published":null,)"
            R"("note":null,"code":null)"),
        "");
    EXPECT_EQ(faults(R"("shop":{"seller":null,"place":null},"unknown":1,"Year":"x")"), "");
    // The second of two equal keys counts as unknown.
    EXPECT_EQ(faults(R"("year":1,"year":"x")"), "");
}

TEST(Explaining, ReportsTheResultingValueOfEachKindOfField) {
    EXPECT_EQ(
        faults(R"("format":"x","second":1,"year":"1","isOnSale":1,"isKnown":"yes","stock":1.5,"tags":"a",)"
               R"("single":[],"tracks":{},"extras":1,"hidden":"h","published":true)"),
        "/format lenient: Format, string, tape\n"
        "/second lenient: String, number, empty\n"
        "/year lenient: UInt, string, empty\n"
        "/isOnSale lenient: Bool, number, false\n"
        "/isKnown lenient: Bool, string, true\n"
        "/stock lenient: Int, number, -1\n"
        "/tags lenient: [String], string, []\n"
        "/single lenient: Track, array, empty\n"
        "/tracks lenient: [Track], object, []\n"
        "/extras lenient: [Track], number, []\n"
        "/hidden lenient: [Track], string, empty\n"
        "/published lenient: String, boolean, empty\n");
}

TEST(Explaining, ReportsInvalidValuesOfTheRightType) {
    EXPECT_EQ(faults(R"("second":"x","year":-1,"published":"soon","shop":{"seller":"\ud800"})"),
              "/second lenient: Format, string, empty\n"
              "/year lenient: UInt, number, empty\n"
              "/shop/seller lenient: String, string, empty\n"
              "/published lenient: Date, string, empty\n");
}

TEST(Explaining, ReportsThePathOfTheInnermostFaultyValue) {
    EXPECT_EQ(
        faults(
            R"("tags":["a",null,1],"single":{"name":1},"tracks":[{"name":"a"},{"seconds":1}],"hidden":[7])"),
        "/tags/1 lenient: String, null, []\n"
        "/single/name lenient: String, number, empty\n"
        "/tracks/1/name lenient: String, nothing, []\n"
        "/hidden/0 lenient: Track, number, empty\n");
}

TEST(Explaining, ReportsFaultsInsideKeptValues) {
    EXPECT_EQ(
        faults(R"("single":{"name":"n","seconds":"1"},"tracks":[{"name":"a","seconds":-1},{"name":"b"}])"),
        "/single/seconds lenient: UInt, string, empty\n"
        "/tracks/0/seconds lenient: UInt, number, empty\n");
}

TEST(Explaining, ReportsAnOmittedElementAsDropped) {
    EXPECT_EQ(faults(R"("extras":[{"name":"a"},{},7,null,{"name":"b","seconds":true}])"),
              "/extras/1/name lenient: String, nothing, dropped\n"
              "/extras/2 lenient: Track, number, dropped\n"
              "/extras/3 lenient: Track, null, dropped\n"
              "/extras/4/seconds lenient: UInt, boolean, empty\n");
}

TEST(Explaining, ReportsObjectsWithInvalidKeys) {
    EXPECT_EQ(faults(R"("shop":[1])"), "/shop lenient: Object, array, empty\n");
    EXPECT_EQ(faults(R"("shop":{"seller":"s","place":"x"})"), "/shop/place lenient: Object, string, empty\n");
    EXPECT_EQ(faults(R"("shop":{"seller":"s","\ud800":1})"), "/shop lenient: readable keys, object, empty\n");
    EXPECT_EQ(faults(R"("single":{"name":"s","\ud800":1})"),
              "/single lenient: readable keys, object, empty\n");
}

TEST(Explaining, ReportsFaultsInDecodingOrder) {
    EXPECT_EQ(faults(R"("tags":1,"isOnSale":1,"year":"x")"),
              "/year lenient: UInt, string, empty\n"
              "/isOnSale lenient: Bool, number, false\n"
              "/tags lenient: [String], number, []\n");
}

TEST(Explaining, ReportsTheFaultThatFailsTheDocumentLast) {
    EXPECT_EQ(faultsOfDocument("{}"), "/title required: String, nothing, failure\n");
    EXPECT_EQ(faultsOfDocument(R"({"title":null})"), "/title required: String, null, failure\n");
    EXPECT_EQ(faultsOfDocument(R"({"year":"x","title":1})"), "/title required: String, number, failure\n");
    EXPECT_EQ(faults(R"("note":1,"year":"x")"),
              "/year lenient: UInt, string, empty\n"
              "/note optional: String, number, failure\n");
    EXPECT_EQ(faults(R"("code":true)"), "/code default: String, boolean, failure\n");
    EXPECT_EQ(faultsOfDocument("[]"), " required: Record, array, failure\n");
    EXPECT_EQ(faultsOfDocument("null"), " required: Record, null, failure\n");
    EXPECT_EQ(faultsOfDocument(R"({"title":"t","\ud800":1})"), " required: readable keys, object, failure\n");
}

TEST(Explaining, ReportsAMalformedDocument) {
    for (const char* const json :
         {"", "{", "{\"title\":\"t\",,}", "{\"title\":\"t\",\"year\":tru}", "{\"title\":\"t\"}}"}) {
        const Diagnosis diagnosis = diagnose<Record>(Data(json));
        EXPECT_EQ(faultsOf(diagnosis), " required: JSON, a broken document, failure\n") << json;
        ASSERT_TRUE(diagnosis.error);
        EXPECT_TRUE(diagnosis.path.empty());
    }
}

TEST(Explaining, HasNoErrorIfTheDocumentDecodes) {
    const Diagnosis diagnosis = diagnose<Record>(Data(R"({"title":"t","year":"x"})"));
    EXPECT_FALSE(diagnosis.error);
    EXPECT_TRUE(diagnosis.path.empty());
}

TEST(ADecodingError, DescribesForDevelopersWhatWasExpectedAndFound) {
    const auto description = [](const char* json) {
        const Diagnosis diagnosis = diagnose<Record>(Data(json));
        return diagnosis.error ? diagnosis.error->as<DecodingError>()->debugDescription() : "";
    };
    EXPECT_EQ(description("{}"), "No value is there for the key \"title\".");
    EXPECT_EQ(description(R"({"title":null})"), "Expected String but found null instead.");
    EXPECT_EQ(description(R"({"title":[]})"), "Expected String but found array instead.");
    EXPECT_EQ(description(R"({"title":"\x"})"), "The string cannot be read as String.");
    EXPECT_EQ(description("{\"title\":"), "The document is not valid JSON.");
    EXPECT_EQ(description(R"({"title":"t","\x":1})"), "The object has a key that cannot be read.");
}

TEST(Explaining, DoesNotAccessAnElementAfterTheListMayHaveMovedIt) {
    constexpr std::size_t count = 40;
    std::string books;
    std::string expected;
    for (std::size_t i = 0; i < count; ++i) {
        books += i == 0 ? R"({"title":1})" : R"(,{"title":1})";
        expected +=
            "/books/" + std::to_string(i) + "/title lenient: String, number, \"" + Book().title + "\"\n";
    }
    EXPECT_EQ(faultsOf(diagnose<Shelf>(Data(R"({"label":2,"books":[)" + books + "]}"))),
              expected + "/label lenient: String, number, \"40\"\n");
}

TEST(ADecodingError, HasThePlatformsDescriptionCodeAndDomain) {
    const auto error = [](const char* json) { return *diagnose<Record>(Data(json)).error; };
    const std::string missing = "The data couldn\u2019t be read because it is missing.";
    const std::string unfit = "The data couldn\u2019t be read because it isn\u2019t in the correct format.";
    for (const char* const json : {"{}", "{\"title\":null}"}) {
        EXPECT_EQ(error(json).localizedDescription(), missing);
        EXPECT_EQ(error(json).code(), 4865);
        EXPECT_EQ(error(json).domain(), "NSCocoaErrorDomain");
    }
    for (const char* const json : {"{\"title\":1}", "", "{\"title\":\"\\x\"}"}) {
        EXPECT_EQ(error(json).localizedDescription(), unfit);
        EXPECT_EQ(error(json).code(), 4864);
        EXPECT_EQ(error(json).domain(), "NSCocoaErrorDomain");
    }
}

}  // namespace
}  // namespace VanticRestKit
