// The reports on elements that a mixed list drops.

#include <gtest/gtest.h>
#include <VanticRestKit/lumeno/MixedCollection/MixedCollection.h>

#include <platform/json/FaultText.h>

namespace VanticRestKit {
namespace {

using test::faultText;

TEST(ExplainingAMixedCollection, DoesNotReportKeptElements) {
    EXPECT_EQ(
        faultText<MixedCollection>(
            R"({"title":"t","items":[{"_entity":"show"},{"_entity":"video","_links":{}},)"
            R"({"_entity":"series","id":"1","_links":{}},{}],"_embedded":{"highlightItem":{"_entity":"show"}}})"),
        "");
}

TEST(ExplainingAMixedCollection, ReportsEachDroppedElementAndItsPossibleTypes) {
    EXPECT_EQ(
        faultText<MixedCollection>(
            R"({"title":"t","items":[{},7,{"_entity":"video"},null,{"_entity":"promo","id":1,"_links":{}}]})"),
        "/items/1 lenient: Show or Video or Series, number, dropped\n"
        "/items/2 lenient: Show or Video or Series, object, dropped\n"
        "/items/3 lenient: Show or Video or Series, null, dropped\n"
        "/items/4 lenient: Show or Video or Series, object, dropped\n");
}

TEST(ExplainingAMixedCollection, ReportsFaultsInsideKeptElements) {
    EXPECT_EQ(faultText<MixedCollection>(
                  R"({"title":"t","items":[{"tags":1,"_entity":"show"},{"_entity":"video","_links":7},)"
                  R"({"title":2,"_links":{},"_entity":"video"}]})"),
              "/items/0/tags lenient: [String], number, []\n"
              "/items/1 lenient: Show or Video or Series, object, dropped\n"
              "/items/2/title lenient: String, number, empty\n");
}

TEST(ExplainingAMixedCollection, ReportsAnInvalidHighlightItem) {
    EXPECT_EQ(faultText<MixedCollection>(
                  R"({"title":"t","_embedded":{"highlightItem":{"_entity":"series","id":"1","_links":{}}}})"),
              "/_embedded/highlightItem lenient: Show or Video, object, empty\n");
}

TEST(ExplainingAMixedCollection, ReportsTheFaultThatFailsItLast) {
    EXPECT_EQ(faultText<MixedCollection>(R"({"id":-1,"title":"t","_links":{},"_embedded":7})"),
              "/id lenient: String, number, empty\n"
              "/_links/self required: Object, nothing, failure\n");
}

}  // namespace
}  // namespace VanticRestKit
