// The two enumerations used in routes.

#include <gtest/gtest.h>
#include <VanticRestKit/trelvo/Common/RouteValues.h>

#include <platform/json/BothEngines.h>
#include <VanticRestKit/platform/json/JSONEncoder.h>
#include <VanticRestKit/platform/json/PlanOf.h>
#include <iterator>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::failureOf;

TEST(SourceSystem, HasOneCase) {
    EXPECT_EQ(std::size(RawTexts<SourceSystem>::cases), 1U);
    EXPECT_EQ(rawValue(SourceSystem::lumeno), "lumeno");
    EXPECT_EQ(caseName(SourceSystem::lumeno), "lumeno");
    EXPECT_EQ(fromRawValue<SourceSystem>("lumeno"), SourceSystem::lumeno);
}

TEST(SourceSystem, HasNoCaseForAnyOtherString) {
    for (const char* const raw : {"", "Lumeno", "lumeno ", "LUMENO", "coremedia"}) {
        EXPECT_EQ(fromRawValue<SourceSystem>(raw), std::nullopt) << raw;
    }
}

TEST(SourceSystem, DecodesFromItsRawValue) {
    EXPECT_EQ(decoded<std::vector<SourceSystem>>(R"(["lumeno"])"), std::vector{SourceSystem::lumeno});
    EXPECT_EQ(failureOf<std::vector<SourceSystem>>(R"(["other"])"), "dataCorrupted [0]");
    EXPECT_EQ(failureOf<std::vector<SourceSystem>>("[0]"), "typeMismatch [0]");
}

TEST(SourceSystem, IsEncodedAsItsRawValue) {
    EXPECT_EQ(JSONEncoder().encode(SourceSystem::lumeno)->view(), R"("lumeno")");
}

TEST(TrelvoSlug, IsEncodedAsItsRawValue) {
    EXPECT_EQ(JSONEncoder().encode(TrelvoSlug::watchlist)->view(), R"("watchlist")");
}

TEST(TrelvoSlug, HasOneCaseDescribedByItsRawValue) {
    EXPECT_EQ(std::size(RawTexts<TrelvoSlug>::cases), 1U);
    EXPECT_EQ(rawValue(TrelvoSlug::watchlist), "watchlist");
    EXPECT_EQ(description(TrelvoSlug::watchlist), "watchlist");
    EXPECT_EQ(fromRawValue<TrelvoSlug>("watchlist"), TrelvoSlug::watchlist);
}

TEST(TrelvoSlug, HasNoCaseForAnyOtherString) {
    for (const char* const raw : {"", "Watchlist", "history", " watchlist"}) {
        EXPECT_EQ(fromRawValue<TrelvoSlug>(raw), std::nullopt) << raw;
    }
}

TEST(TrelvoSlug, DecodesFromItsRawValue) {
    EXPECT_EQ(decoded<std::vector<TrelvoSlug>>(R"(["watchlist"])"), std::vector{TrelvoSlug::watchlist});
    EXPECT_EQ(failureOf<std::vector<TrelvoSlug>>(R"(["watchlist",null])"), "valueNotFound [1]");
    EXPECT_EQ(failureOf<std::vector<TrelvoSlug>>(R"(["list"])"), "dataCorrupted [0]");
}

}  // namespace
}  // namespace VanticRestKit
