// Decoding a long mixed list takes one pass. The test counts the values read, not the time.

#include <gtest/gtest.h>
#include <lumeno/MixedCollection/MixedCollectionRules.h>
#include <VanticRestKit/platform/json/DecodingError.h>
#include <VanticRestKit/platform/json/JSONDecoder.h>
#include <VanticRestKit/platform/json/Table.h>

#include <array>
#include <variant>

namespace VanticRestKit {
namespace {

constexpr std::size_t elements = 10'000;

/// The number of strings read as dates.
std::size_t valuesRead = 0;

bool countedDate(std::string_view, Date&) {
    ++valuesRead;
    return true;
}

struct Part {
    std::optional<Date> date{};
};

/// Three entities that are related like show, video and series, and that count the values read for them.
template <int Place>
struct Counting {
    struct DecodingError {
        static Error entityMismatch(const std::string&) {
            return VanticRestKit::DecodingError(VanticRestKit::DecodingError::Kind::dataCorrupted, {}, "");
        }
    };

    std::string id{};
    std::optional<Date> date{};
    std::vector<Part> parts{};
};
using LikeAShow = Counting<0>;
using LikeAVideo = Counting<1>;
using LikeASeries = Counting<2>;

struct Element {
    Element(LikeAShow made) : entity(std::move(made)) {}
    Element(LikeAVideo made) : entity(std::move(made)) {}
    Element(LikeASeries made) : entity(std::move(made)) {}
    template <class T>
    const T* as() const {
        return std::get_if<T>(&entity);
    }
    std::variant<LikeAShow, LikeAVideo, LikeASeries> entity;
};

struct CountingCollection {
    std::vector<Element> items{};
    std::optional<Element> highlight{};
};

}  // namespace

template <>
const TypePlan& planOf<Part>() {
    using namespace mapping;
    static const TypePlan& plan = object<Part>(lenient<&Part::date, countedDate>("date"));
    return plan;
}

template <>
const TypePlan& planOf<LikeAShow>() {
    using namespace mapping;
    static const TypePlan& plan = object<LikeAShow>(entity<LikeAShow>("show"), lenient<&LikeAShow::id>("id"),
                                                    lenient<&LikeAShow::date, countedDate>("date"),
                                                    lenient<&LikeAShow::parts>("parts"));
    return plan;
}

template <>
const TypePlan& planOf<LikeAVideo>() {
    using namespace mapping;
    static const TypePlan& plan =
        object<LikeAVideo>(entity<LikeAVideo>("video"), lenient<&LikeAVideo::id>("id"),
                           lenient<&LikeAVideo::date, countedDate>("date"),
                           lenient<&LikeAVideo::parts>("parts"), requiredObject("_links"));
    return plan;
}

template <>
const TypePlan& planOf<LikeASeries>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<LikeASeries>(
        required<&LikeASeries::id>("id"), lenient<&LikeASeries::date, countedDate>("date"),
        lenient<&LikeASeries::parts>("parts"), requiredObject("_links"));
    // clang-format on
    return plan;
}

template <>
const TypePlan& planOf<CountingCollection>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<CountingCollection>(
        lenient<&CountingCollection::items, eachOneOf<LikeAShow, LikeAVideo, LikeASeries>>("items"),
        lenient<&CountingCollection::highlight, oneOf<LikeAShow, LikeAVideo>>("highlight"));
    // clang-format on
    return plan;
}

namespace {

constexpr std::size_t valuesPerElement = 4;
const char* const values = R"("id":"1","date":"d","parts":[{"date":"a"},{"date":"b"},{"date":"c"}])";

/// An object with this entity name at the front or at the end, "" for none.
std::string element(const std::string& entity, bool isInFront, const char* links = R"("_links":{},)") {
    const std::string name = entity.empty() ? "" : R"("_entity":")" + entity + "\"";
    const std::string front = isInFront && !name.empty() ? name + "," : "";
    const std::string back = !isInFront && !name.empty() ? "," + name : "";
    return "{" + front + links + values + back + "}";
}

/// A list whose elements cycle through `kinds`.
std::string listOf(const std::vector<std::string>& kinds, std::size_t count = elements) {
    std::string json;
    for (std::size_t i = 0; i < count; ++i) json += (i == 0 ? "" : ",") + kinds[i % kinds.size()];
    return "[" + json + "]";
}

/// The number of values read per element of the list. Expects that `kept` of its elements are kept.
double readPerElement(const std::string& list, std::size_t kept, std::size_t count = elements) {
    const Data document{R"({"items":)" + list + "}"};
    valuesRead = 0;
    const auto made = JSONDecoder().decode<CountingCollection>(document);
    EXPECT_TRUE(made);
    if (made) {
        EXPECT_EQ(made->items.size(), kept);
    }
    return static_cast<double>(valuesRead) / static_cast<double>(count);
}

TEST(ALongMixedList, ReadsEachValueOnceForEveryKindOfElement) {
    for (const char* const entity : {"show", "video", "series", "promo", ""}) {
        EXPECT_EQ(readPerElement(listOf({element(entity, true)}), elements), valuesPerElement) << entity;
    }
}

TEST(ALongMixedList, ReadsEachValueOnceIfTheElementsEndWithTheirEntityName) {
    for (const char* const entity : {"show", "video", "series", "promo"}) {
        EXPECT_EQ(readPerElement(listOf({element(entity, false)}), elements), valuesPerElement) << entity;
    }
}

TEST(ALongMixedList, ReadsEachValueOnceIfTheKindsAlternate) {
    const std::vector<std::string> kinds = {
        element("show", true),  element("series", false), element("VIDEO", false), element("", true),
        element("video", true), element("Show", false),   element("promo", true),  element("promo", false)};
    EXPECT_EQ(readPerElement(listOf(kinds), elements), valuesPerElement);
}

TEST(ALongMixedList, ReadsNothingOfElementsThatAreNotObjects) {
    EXPECT_EQ(readPerElement(listOf({"7", "null", "\"x\"", "[{\"date\":\"d\"}]"}), 0), 0);
}

TEST(ALongMixedList, ReadsADroppedElementOncePerPossibleEntity) {
    // A video without links is tried as a video first, and then as a series, which accepts any name.
    EXPECT_EQ(readPerElement(listOf({element("video", false, "")}), 0), 2 * valuesPerElement);
    EXPECT_EQ(readPerElement(listOf({element("promo", false, "")}), 0), valuesPerElement);
}

TEST(ALongMixedList, ReadsItsValuesAsOftenAsAShortList) {
    const std::vector<std::string> kinds = {element("show", true), element("series", false),
                                            element("video", false, "")};
    const double inAShortOne = readPerElement(listOf(kinds, 3), 2, 3);
    EXPECT_EQ(readPerElement(listOf(kinds, 9'999), 6'666, 9'999), inAShortOne);
}

TEST(AHighlight, IsReadOnceIfItIsKeptAndNotAtAllIfItsKindIsNotAllowed) {
    for (const auto& [entity, times] :
         {std::pair("show", 1), std::pair("video", 1), std::pair("series", 0)}) {
        const Data document{R"({"highlight":)" + element(entity, false) + "}"};
        valuesRead = 0;
        const auto made = JSONDecoder().decode<CountingCollection>(document);
        ASSERT_TRUE(made);
        EXPECT_EQ(made->highlight.has_value(), times == 1);
        EXPECT_EQ(valuesRead, static_cast<std::size_t>(times) * valuesPerElement) << entity;
    }
}

TEST(AMixedCollectionOfTenThousand, KeepsElementsOfEveryKindInOrder) {
    const std::vector<std::string> kinds = {
        R"({"id":"1","title":"t","_links":{},"_entity":"series"})", R"({"_entity":"video"})",
        R"({"id":"2","_links":{},"_entity":"video"})", "null", R"({"title":"u"})"};
    const Data document{R"({"title":"t","items":)" + listOf(kinds) + "}"};
    const auto made = JSONDecoder().decode<MixedCollection>(document);
    ASSERT_TRUE(made);
    ASSERT_EQ(made->mixedItems.size(), elements / 5 * 3);
    for (std::size_t i = 0; i < made->mixedItems.size(); i += 3) {
        ASSERT_NE(made->mixedItems[i].as<Series>(), nullptr) << i;
        ASSERT_NE(made->mixedItems[i + 1].as<Video>(), nullptr) << i;
        ASSERT_NE(made->mixedItems[i + 2].as<Show>(), nullptr) << i;
    }
    EXPECT_EQ(made->items().size(), made->mixedItems.size());
}

}  // namespace
}  // namespace VanticRestKit
