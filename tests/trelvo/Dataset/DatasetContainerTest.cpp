#include <gtest/gtest.h>
#include <VanticRestKit/trelvo/Dataset/DatasetContainer.h>

#include <platform/json/FaultText.h>
#include <trelvo/Dataset/DatasetRules.h>

namespace VanticRestKit {
namespace {

using test::datasetContainers;
using test::decoded;
using test::failureOf;

Date at(double seconds) { return Date(Date::duration(seconds)); }

/// The dataset of a container whose member "dataset" is `json`.
Dictionary datasetOf(const std::string& json) {
    const auto container = decoded<DatasetContainer>(R"({"uid":"u","dataset":)" + json + "}");
    EXPECT_TRUE(container) << json;
    return container ? container->dataset : Dictionary{{"did not decode", AnyValue(true)}};
}

TEST(DatasetContainer, HasEightFieldsInDeclaredOrder) {
    ASSERT_EQ(datasetContainers().fields.size(), 8U);
    test::expectDeclaredFields(datasetContainers());
    const DatasetContainer container{.uid = "u",
                                     .parentUid = "p",
                                     .oid = "o",
                                     .source = "any system",
                                     .namespace_ = "profile",
                                     .dataset = {{"a", AnyValue(1)}},
                                     .created = at(1),
                                     .updated = at(2)};
    EXPECT_EQ(decoded<DatasetContainer>(
                  R"({"updated":"1970-01-01T00:00:02Z","created":"1970-01-01T00:00:01Z","dataset":{"a":1},)"
                  R"("namespace":"profile","source":"any system","oid":"o","parent_uid":"p","uid":"u"})"),
              container);
}

TEST(DatasetContainer, RequiresOnlyAUidAndADataset) { test::expectFieldsInEveryState(datasetContainers()); }

TEST(DatasetContainer, ReadsTheUidBeforeTheDataset) {
    test::expectErrorsInOrder(datasetContainers(), {{"uid", "1"}, {"dataset", "[]"}});
}

TEST(DatasetContainer, MustBeAnObject) { test::expectAnObjectOnly(test::decodable<DatasetContainer>); }

TEST(DatasetContainer, FailsIfTheDatasetIsMissingNullOrOfAnotherType) {
    EXPECT_EQ(failureOf<DatasetContainer>(R"({"uid":"u"})"), R"(keyNotFound ["dataset"])");
    EXPECT_EQ(failureOf<DatasetContainer>(R"({"uid":"u","dataset":null})"), R"(valueNotFound ["dataset"])");
    EXPECT_EQ(failureOf<DatasetContainer>(R"({"uid":"u","dataset":"{}"})"), R"(typeMismatch ["dataset"])");
}

TEST(DatasetContainer, OmitsAnObjectInItsDatasetAndKeepsTheOthers) {
    EXPECT_EQ(datasetOf(R"({"a":"x","nested":{"displayName":"y","deep":[{}]},"b":2})"),
              (Dictionary{{"a", AnyValue("x")}, {"b", AnyValue(2)}}));
}

TEST(DatasetContainer, OmitsAListOrANullInItsDatasetAndKeepsTheOthers) {
    EXPECT_EQ(datasetOf(R"({"list":[1],"a":"x","none":null,"empty":[]})"),
              (Dictionary{{"a", AnyValue("x")}}));
    EXPECT_EQ(datasetOf(R"({"list":[1],"none":null})"), Dictionary{});
    EXPECT_EQ(datasetOf("{}"), Dictionary{});
}

TEST(DatasetContainer, OmitsAnInvalidValueInItsDatasetAndKeepsTheOthers) {
    EXPECT_EQ(datasetOf(R"({"text":"\ud800","number":01,"huge":1e400,"a":"x"})"),
              (Dictionary{{"a", AnyValue("x")}}));
}

TEST(DatasetContainer, ReportsTheOmittedValuesOfItsDataset) {
    EXPECT_EQ(test::faultText<DatasetContainer>(
                  R"({"uid":"u","dataset":{"a":"\ud800","b":01,"c":null,"d":[1],"e":"good","a":1e999}})"),
              "/dataset/a lenient: String, string, dropped\n"
              "/dataset/b lenient: Int or Double, number, dropped\n");
}

TEST(DatasetContainer, DistinguishesStringsNumbersAndBooleans) {
    const Dictionary dataset = datasetOf(
        R"({"true":true,"false":false,"one":1,"zero":0,"half":0.5,"text":"1","yes":"true","whole":2.0,"great":1e20,)"
        R"("least":-9223372036854775808,"behind":9223372036854775808})");
    const Dictionary expected{{"true", AnyValue(true)},
                              {"false", AnyValue(false)},
                              {"one", AnyValue(1)},
                              {"zero", AnyValue(0)},
                              {"half", AnyValue(0.5)},
                              {"text", AnyValue("1")},
                              {"yes", AnyValue("true")},
                              {"whole", AnyValue(2)},
                              {"great", AnyValue(1e20)},
                              {"least", AnyValue(std::numeric_limits<std::int64_t>::min())},
                              {"behind", AnyValue(9223372036854775808.0)}};
    EXPECT_EQ(dataset, expected);
    EXPECT_EQ(dataset.at("true").integer(), nullptr);
    EXPECT_EQ(dataset.at("one").boolean(), nullptr);
    EXPECT_EQ(dataset.at("one").number(), nullptr);
    EXPECT_EQ(dataset.at("half").integer(), nullptr);
    EXPECT_EQ(dataset.at("text").integer(), nullptr);
}

TEST(DatasetContainer, AcceptsAnyKeyInItsDatasetIncludingItsOwnKeys) {
    EXPECT_EQ(datasetOf(R"({"uid":"x","dataset":1,"":"empty","\u00e9 \"":true,"parent_uid":0.25})"),
              (Dictionary{{"uid", AnyValue("x")},
                          {"dataset", AnyValue(1)},
                          {"", AnyValue("empty")},
                          {"\u00e9 \"", AnyValue(true)},
                          {"parent_uid", AnyValue(0.25)}}));
}

TEST(DatasetContainer, ReadsOnlyDatesInWholeSeconds) {
    const auto createdOf = [](const std::string& text) {
        const auto container =
            decoded<DatasetContainer>(R"({"uid":"u","dataset":{},"created":")" + text + R"("})");
        EXPECT_TRUE(container) << text;
        return container ? container->created : std::nullopt;
    };
    EXPECT_EQ(createdOf("2021-03-04T05:06:07Z"), at(1614834367));
    EXPECT_EQ(createdOf("2021-03-04T05:06:07+10:00"), at(1614798367));
    EXPECT_EQ(createdOf("2021-03-04T05:06:07.123Z"), std::nullopt);
    EXPECT_EQ(createdOf("2021-03-04T05:06:07.0Z"), std::nullopt);
    EXPECT_EQ(createdOf("yesterday"), std::nullopt);
}

TEST(DatasetContainer, AcceptsAnUnknownSource) {
    EXPECT_EQ(decoded<DatasetContainer>(R"({"uid":"u","dataset":{},"source":"elsewhere"})")->source,
              "elsewhere");
}

TEST(DatasetContainer, IsEqualOnlyIfAllItsFieldsAre) {
    const DatasetContainer container{.uid = "u", .dataset = {{"a", AnyValue(1)}}};
    DatasetContainer other = container;
    EXPECT_EQ(container, other);
    other.dataset["a"] = AnyValue(1.0);
    EXPECT_NE(container, other);
}

}  // namespace
}  // namespace VanticRestKit
