#include <gtest/gtest.h>
#include <VanticRestKit/platform/json/JSONDecoder.h>
#include <VanticRestKit/platform/json/Table.h>
#include <VanticRestKit/trelvo/Saved/SavedData.h>

#include <trelvo/Common/Shapes.h>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::Strictness;

test::EntityRules records() {
    return {.type = test::decodable<SavedData>,
            .minimal = R"({"oid":"o","slug":"s","namespace":"n","key":"k","order":1})",
            .fields = {{"source", "source", Strictness::lenient, test::rawText("lumeno", "lumeno")},
                       {"oid", "oid", Strictness::required, test::text()},
                       {"slug", "slug", Strictness::required, test::text()},
                       {"namespace", "namespace", Strictness::required, test::text()},
                       {"key", "key", Strictness::required, test::text()},
                       {"order", "order", Strictness::required, test::wholeNumber()},
                       {"created", "created", Strictness::lenient, test::apiDateText()},
                       {"updated", "updated", Strictness::lenient, test::apiDateText()}}};
}

/// The smallest record with `member` added.
std::optional<SavedData> recordWith(const std::string& member) {
    return decoded<SavedData>(R"({"oid":"o","slug":"s","namespace":"n","key":"k","order":1,)" + member + "}");
}

TEST(SavedData, HasEightFieldsInDeclaredOrder) {
    ASSERT_EQ(records().fields.size(), 8U);
    test::expectDeclaredFields(records());
    const SavedData record{.source = SourceSystem::lumeno,
                           .oid = "o",
                           .slug = "any slug",
                           .namespace_ = "n",
                           .key = "k",
                           .order = -5,
                           .created = Date(Date::duration(1577934245)),
                           .updated = Date(Date::duration(1577934246))};
    EXPECT_EQ(
        decoded<SavedData>(
            R"({"updated":"2020-01-02T03:04:06Z","created":"2020-01-02T03:04:05+0000","order":-5,"key":"k",)"
            R"("namespace":"n","slug":"any slug","oid":"o","source":"lumeno"})"),
        record);
}

TEST(SavedData, RequiresAllFieldsExceptSourceAndDates) { test::expectFieldsInEveryState(records()); }

TEST(SavedData, ReadsItsKeysInDeclaredOrder) {
    test::expectErrorsInOrder(
        records(),
        {{"oid", "null"}, {"slug", "[]"}, {"namespace", "{}"}, {"key", "true"}, {"order", "\"1\""}});
}

TEST(SavedData, MustBeAnObject) { test::expectAnObjectOnly(test::decodable<SavedData>); }

TEST(SavedData, DoesNotRequireAUid) {
    EXPECT_EQ(recordWith(R"("uid":7)"), recordWith(R"("uid":"u")"));
    EXPECT_TRUE(recordWith(R"("uid":null)"));
}

TEST(SavedData, ReadsADateWithAFractionAndIgnoresOtherFormats) {
    const auto created = [](const char* text) {
        const auto record = recordWith(std::string(R"("created":")") + text + "\"");
        EXPECT_TRUE(record) << text;
        return record ? record->created : std::nullopt;
    };
    const Date date{Date::duration(1614834367)};
    EXPECT_EQ(created("2021-03-04T05:06:07+0000"), date);
    EXPECT_EQ(created("2021-03-04T05:06:07.123+0000"), date);
    EXPECT_EQ(created("2021-03-04 05:06:07"), std::nullopt);
    EXPECT_EQ(created("04/03/2021"), std::nullopt);
}

TEST(SavedData, AllowsItsSourceToBeChanged) {
    auto record = recordWith(R"("source":"elsewhere")");
    ASSERT_TRUE(record);
    EXPECT_EQ(record->source, std::nullopt);
    record->source = SourceSystem::lumeno;
    EXPECT_EQ(record, recordWith(R"("source":"lumeno")"));
    record->source = std::nullopt;
    EXPECT_EQ(record, recordWith(R"("source":null)"));
}

/// A host's own record that decodes.
struct OwnRecord {
    std::optional<SourceSystem> source{};
    std::string oid{};
    std::string slug{};
    std::string namespace_{};
    std::string key{};
    std::int64_t order{};
    std::optional<Date> created{};
    std::optional<Date> updated{};
    std::string note{};
};

/// A record with a mapping table, but with a property of another type.
struct RecordWithAStringForItsOrder {
    std::optional<SourceSystem> source{};
    std::string oid{};
    std::string slug{};
    std::string namespace_{};
    std::string key{};
    std::string order{};
    std::optional<Date> created{};
    std::optional<Date> updated{};
};

/// A record of the same shape without a mapping table.
struct RecordWithoutATable {
    std::optional<SourceSystem> source{};
    std::string oid{};
    std::string slug{};
    std::string namespace_{};
    std::string key{};
    std::int64_t order{};
    std::optional<Date> created{};
    std::optional<Date> updated{};
};

}  // namespace

template <>
const TypePlan& planOf<OwnRecord>() {
    using namespace mapping;
    using Record = OwnRecord;
    static const TypePlan& plan = object<Record>(
        lenient<&Record::source>("source"), required<&Record::oid>("oid"), required<&Record::slug>("slug"),
        required<&Record::namespace_>("namespace"), required<&Record::key>("key"),
        required<&Record::order>("order"), lenient<&Record::created, deviceDate>("created"),
        lenient<&Record::updated, deviceDate>("updated"), lenient<&Record::note>("note"));
    return plan;
}

template <>
[[maybe_unused]] const TypePlan& planOf<RecordWithAStringForItsOrder>() {
    using namespace mapping;
    using Record = RecordWithAStringForItsOrder;
    static const TypePlan& plan = object<Record>(
        lenient<&Record::source>("source"), required<&Record::oid>("oid"), required<&Record::slug>("slug"),
        required<&Record::namespace_>("namespace"), required<&Record::key>("key"),
        required<&Record::order>("order"), lenient<&Record::created, deviceDate>("created"),
        lenient<&Record::updated, deviceDate>("updated"));
    return plan;
}

namespace {

template <SavedEntityProtocol Record>
std::string shownBy(const Record& record) {
    return record.oid + "/" + record.slug + "/" + record.namespace_ + "/" + record.key + " " +
           std::to_string(record.order) +
           (record.source ? " of " + std::string(rawValue(*record.source)) : "") +
           (record.created ? " created" : "") + (record.updated ? " updated" : "");
}

TEST(SavedEntityProtocol, ProvidesWhatGenericCodeNeeds) {
    EXPECT_EQ(shownBy(*recordWith(R"("source":"lumeno","created":"2021-03-04T05:06:07Z")")),
              "o/s/n/k 1 of lumeno created");
    EXPECT_EQ(shownBy(OwnRecord{.oid = "a", .slug = "b", .namespace_ = "c", .key = "d", .order = 2}),
              "a/b/c/d 2");
    const auto decoded = JSONDecoder().decode<OwnRecord>(
        Data(R"({"oid":"a","slug":"b","namespace":"c","key":"d","order":2})"));
    ASSERT_TRUE(decoded);
    EXPECT_EQ(shownBy(*decoded), "a/b/c/d 2");
}

TEST(SavedEntityProtocol, IsNotSatisfiedByAPropertyOfAnotherType) {
    static_assert(SavedEntityProtocol<OwnRecord>);
    static_assert(!SavedEntityProtocol<RecordWithAStringForItsOrder>);
    static_assert(!SavedEntityProtocol<std::string>);
}

TEST(SavedEntityProtocol, IsNotSatisfiedWithoutAMappingTable) {
    static_assert(!SavedEntityProtocol<RecordWithoutATable>);
}

}  // namespace
}  // namespace VanticRestKit
