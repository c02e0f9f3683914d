#include <gtest/gtest.h>
#include <VanticRestKit/lumeno/Status/Status.h>
#include <VanticRestKit/platform/error/Error.h>

#include <platform/json/FieldRules.h>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::failureOf;
using test::Strictness;

/// The raw value of a theme. Any other string gives the default theme.
test::Shape theme() {
    test::Shape shape = test::text();
    shape.fits = {{"\"live\"", "\"live\""},      {"\"default\"", "\"default\""}, {"\"dark\"", "\"default\""},
                  {"\"Live\"", "\"default\""},   {"\"\"", "\"default\""},        {"\"live \"", "\"default\""},
                  {"\"l\\u0069ve\"", "\"live\""}};
    return shape;
}

test::EntityRules statuses() {
    return {.type = test::decodable<Status>,
            .minimal = R"({"title":"t","theme":"default"})",
            .fields = {{"title", "title", Strictness::required, test::text()},
                       {"theme", "theme", Strictness::required, theme()}}};
}

TEST(Status, HasTwoFields) { test::expectDeclaredFields(statuses()); }

TEST(Status, ReadsEachFieldFromItsKeyOrFails) { test::expectFieldsInEveryState(statuses()); }

TEST(Status, MustBeAnObject) { test::expectAnObjectOnly(test::decodable<Status>); }

TEST(Status, HasTheDefaultThemeForAnUnknownValue) {
    EXPECT_EQ(decoded<Status>(R"({"title":"t","theme":"dark"})"), (Status{"t", StatusTheme::default_}));
}

TEST(Status, ReportsAFaultyTitleBeforeAFaultyTheme) {
    test::expectErrorsInOrder(statuses(), {{"title", "1"}, {"theme", "1"}});
    EXPECT_EQ(failureOf<Status>("{}"), R"(keyNotFound ["title"])");
}

TEST(Status, CanBeInitializedInDeclaredOrder) {
    const Status status{.title = "New", .theme = StatusTheme::live};
    EXPECT_EQ(valueText(status), R"({"title":"New","theme":"live"})");
    EXPECT_EQ(decoded<Status>(valueText(status)), status);
    EXPECT_EQ(Status{}.theme, StatusTheme::default_);
}

TEST(StatusDecodingError, ContainsTheInvalidTheme) {
    const Status::DecodingError error = Status::DecodingError::invalidTheme("Dark");
    EXPECT_EQ(error.found(), "Dark");
    EXPECT_EQ(error.localizedDescription(), "Invalid Status theme string value found: Dark");
    EXPECT_EQ(Error(error).localizedDescription(), "Invalid Status theme string value found: Dark");
    EXPECT_NE(Error(error).as<Status::DecodingError>(), nullptr);
    EXPECT_EQ(Error(error).domain(), "VanticRestKit.Status.DecodingError");
    EXPECT_EQ(Error(error).code(), 0);
    EXPECT_EQ(error, Status::DecodingError::invalidTheme("other"));
}

}  // namespace
}  // namespace VanticRestKit
