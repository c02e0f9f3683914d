#include <gtest/gtest.h>
#include <VanticRestKit/platform/json/JSONDecoder.h>
#include <VanticRestKit/platform/json/Table.h>
#include <VanticRestKit/trelvo/History/HistoryData.h>

#include <trelvo/Common/Shapes.h>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::Strictness;

test::EntityRules records() {
    return {
        .type = test::decodable<HistoryData>,
        .minimal = R"({"uid":"u","oid":"o","slug":"s","namespace":"n","key":"k","progress":1,"done":false})",
        .fields = {{"source", "source", Strictness::lenient, test::rawText("lumeno", "lumeno")},
                   {"uid", "uid", Strictness::required, test::text()},
                   {"oid", "oid", Strictness::required, test::text()},
                   {"slug", "slug", Strictness::required, test::text()},
                   {"namespace", "namespace", Strictness::required, test::text()},
                   {"key", "key", Strictness::required, test::text()},
                   {"progress", "progress", Strictness::required, test::wholeNumber()},
                   {"done", "done", Strictness::required, test::flag()},
                   {"lastAccessed", "lastAccessed", Strictness::lenient, test::apiDateText()}}};
}

/// The smallest record with `member` added.
std::optional<HistoryData> recordWith(const std::string& member) {
    return decoded<HistoryData>(
        R"({"uid":"u","oid":"o","slug":"s","namespace":"n","key":"k","progress":1,"done":true,)" + member +
        "}");
}

TEST(HistoryData, HasNineFieldsInDeclaredOrder) {
    ASSERT_EQ(records().fields.size(), 9U);
    test::expectDeclaredFields(records());
    const HistoryData record{.source = SourceSystem::lumeno,
                             .uid = "u",
                             .oid = "o",
                             .slug = "any slug",
                             .namespace_ = "n",
                             .key = "k",
                             .progress = -5,
                             .done = true,
                             .lastAccessed = Date(Date::duration(1577934245))};
    EXPECT_EQ(
        decoded<HistoryData>(
            R"({"lastAccessed":"2020-01-02T03:04:05+0000","done":true,"progress":-5,"key":"k","namespace":"n",)"
            R"("slug":"any slug","oid":"o","uid":"u","source":"lumeno"})"),
        record);
}

TEST(HistoryData, RequiresAllFieldsExceptSourceAndDate) { test::expectFieldsInEveryState(records()); }

TEST(HistoryData, ReadsItsKeysInDeclaredOrder) {
    test::expectErrorsInOrder(records(), {{"uid", "1"},
                                          {"oid", "null"},
                                          {"slug", "[]"},
                                          {"namespace", "{}"},
                                          {"key", "true"},
                                          {"progress", "\"1\""},
                                          {"done", "1"}});
}

TEST(HistoryData, MustBeAnObject) { test::expectAnObjectOnly(test::decodable<HistoryData>); }

TEST(HistoryData, ReadsADateWithAFractionAndIgnoresOtherFormats) {
    const auto accessed = [](const char* text) {
        const auto record = recordWith(std::string(R"("lastAccessed":")") + text + "\"");
        EXPECT_TRUE(record) << text;
        return record ? record->lastAccessed : std::nullopt;
    };
    const Date date{Date::duration(1614834367)};
    EXPECT_EQ(accessed("2021-03-04T05:06:07+0000"), date);
    EXPECT_EQ(accessed("2021-03-04T05:06:07.123+0000"), date);
    EXPECT_EQ(accessed("2021-03-04T15:06:07.5+1000"), date);
    EXPECT_EQ(accessed("2021-03-04 05:06:07"), std::nullopt);
    EXPECT_EQ(accessed("04/03/2021"), std::nullopt);
}

TEST(HistoryData, IsKeptWithoutAnUnknownSource) {
    const auto record = recordWith(R"("source":"elsewhere")");
    ASSERT_TRUE(record);
    EXPECT_EQ(record->source, std::nullopt);
    EXPECT_EQ(record->key, "k");
}

TEST(HistoryData, AllowsItsSourceToBeChanged) {
    auto record = recordWith(R"("source":"elsewhere")");
    ASSERT_TRUE(record);
    record->source = SourceSystem::lumeno;
    EXPECT_EQ(record->source, SourceSystem::lumeno);
    EXPECT_EQ(record, recordWith(R"("source":"lumeno")"));
    record->source = std::nullopt;
    EXPECT_EQ(record, recordWith(R"("source":null)"));
}

/// A host's own record that decodes.
struct OwnRecord {
    std::optional<SourceSystem> source{};
    std::string namespace_{};
    std::string key{};
    std::int64_t progress{};
    bool done{};
    std::optional<Date> lastAccessed{};
};

/// A record of the same shape without a mapping table.
struct RecordWithoutATable {
    std::optional<SourceSystem> source{};
    std::string namespace_{};
    std::string key{};
    std::int64_t progress{};
    bool done{};
    std::optional<Date> lastAccessed{};
};

/// A record with a mapping table, but without one of the properties.
struct RecordWithoutAKey {
    std::optional<SourceSystem> source{};
    std::string namespace_{};
    std::int64_t progress{};
    bool done{};
    std::optional<Date> lastAccessed{};
};

}  // namespace

template <>
const TypePlan& planOf<OwnRecord>() {
    using namespace mapping;
    static const TypePlan& plan = object<OwnRecord>(
        lenient<&OwnRecord::source>("source"), required<&OwnRecord::namespace_>("namespace"),
        required<&OwnRecord::key>("key"), required<&OwnRecord::progress>("progress"),
        required<&OwnRecord::done>("done"), lenient<&OwnRecord::lastAccessed, deviceDate>("lastAccessed"));
    return plan;
}

template <>
[[maybe_unused]] const TypePlan& planOf<RecordWithoutAKey>() {
    using namespace mapping;
    using Record = RecordWithoutAKey;
    static const TypePlan& plan =
        object<Record>(lenient<&Record::source>("source"), required<&Record::namespace_>("namespace"),
                       required<&Record::progress>("progress"), required<&Record::done>("done"),
                       lenient<&Record::lastAccessed, deviceDate>("lastAccessed"));
    return plan;
}

namespace {

template <HistoryEntityProtocol Record>
std::string shownBy(const Record& record) {
    return record.namespace_ + "/" + record.key + " " + std::to_string(record.progress) +
           (record.done ? " done" : "") +
           (record.source ? " of " + std::string(rawValue(*record.source)) : "") +
           (record.lastAccessed ? " dated" : "");
}

TEST(HistoryEntityProtocol, ProvidesWhatGenericCodeNeeds) {
    EXPECT_EQ(shownBy(*recordWith(R"("source":"lumeno","lastAccessed":"2021-03-04T05:06:07Z")")),
              "n/k 1 done of lumeno dated");
    EXPECT_EQ(shownBy(OwnRecord{.namespace_ = "a", .key = "b", .progress = 2}), "a/b 2");
    const auto decoded =
        JSONDecoder().decode<OwnRecord>(Data(R"({"namespace":"a","key":"b","progress":2,"done":true})"));
    ASSERT_TRUE(decoded);
    EXPECT_EQ(shownBy(*decoded), "a/b 2 done");
}

TEST(HistoryEntityProtocol, IsNotSatisfiedWithoutOneOfItsProperties) {
    static_assert(HistoryEntityProtocol<OwnRecord>);
    static_assert(!HistoryEntityProtocol<RecordWithoutAKey>);
    static_assert(!HistoryEntityProtocol<std::string>);
}

TEST(HistoryEntityProtocol, IsNotSatisfiedWithoutAMappingTable) {
    static_assert(!HistoryEntityProtocol<RecordWithoutATable>);
}

}  // namespace
}  // namespace VanticRestKit
