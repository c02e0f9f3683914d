#include <lumeno/Routes.h>
#include <platform/json/FieldRules.h>
#include <VanticRestKit/lumeno/ProductAlert/ProductAlert.h>
#include <VanticRestKit/lumeno/ProductAlert/ProductAlertRoutes.h>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::failureOf;
using test::Strictness;

test::Shape linkObject() {
    return test::objectOf(
        {{R"({"href":"$","id":"i","title":"t","tags":["a"]})",
          R"({"id":"i","title":"t","href":"$","tags":["a"]})"},
         {R"({"href":"","id":1,"tags":"a"})", R"({"id":null,"title":null,"href":"","tags":[]})"}},
        {{"{}"}, {R"({"id":"i"})"}, {R"({"href":1})"}, {R"({"href":null})"}});
}

test::EntityRules alerts() {
    return {.type = test::decodable<ProductAlert>,
            .minimal = R"({"id":"i","title":"t","message":"m"})",
            .fields = {{"id", "id", Strictness::required, test::text()},
                       {"title", "title", Strictness::required, test::text()},
                       {"message", "message", Strictness::required, test::text()},
                       {"status", "status", Strictness::lenient, test::text()},
                       {"link", "link", Strictness::lenient, linkObject()}}};
}

TEST(ProductAlert, HasFiveFields) { test::expectDeclaredFields(alerts()); }

TEST(ProductAlert, ReadsEachFieldFromItsKeyAndRequiresThreeOfThem) {
    test::expectFieldsInEveryState(alerts());
}

TEST(ProductAlert, MustBeAnObject) { test::expectAnObjectOnly(test::decodable<ProductAlert>); }

TEST(ProductAlert, FailsWithTheErrorOfTheFirstFaultyField) {
    test::expectErrorsInOrder(alerts(), {{"id", "1"}, {"title", "null"}, {"message", "[]"}});
    EXPECT_EQ(failureOf<ProductAlert>("{}"), R"(keyNotFound ["id"])");
}

TEST(ProductAlert, FailsWithoutAMessage) {
    EXPECT_EQ(failureOf<ProductAlert>(R"({"id":"i","title":"t"})"), R"(keyNotFound ["message"])");
}

TEST(ProductAlert, DoesNotReadAStatusFromANumberOrABadge) {
    const ProductAlert bare{.id = "i", .title = "t", .message = "m"};
    EXPECT_EQ(decoded<ProductAlert>(R"({"id":"i","title":"t","message":"m","status":7})"), bare);
    EXPECT_EQ(decoded<ProductAlert>(
                  R"({"id":"i","title":"t","message":"m","status":{"title":"s","theme":"live"}})"),
              bare);
}

TEST(ProductAlert, HasNoLinkIfItHasNoPath) {
    const ProductAlert bare{.id = "i", .title = "t", .message = "m"};
    EXPECT_EQ(decoded<ProductAlert>(R"({"id":"i","title":"t","message":"m","link":{"title":"l"}})"), bare);
}

TEST(ProductAlert, CanBeInitializedInDeclaredOrder) {
    const ProductAlert alert{
        .id = "a", .title = "b", .message = "c", .status = "d", .link = Link{.href = "e"}};
    EXPECT_EQ(valueText(alert), R"({"id":"a","title":"b","message":"c","status":"d",)"
                                R"("link":{"id":null,"title":null,"href":"e","tags":[]}})");
    EXPECT_EQ(
        decoded<ProductAlert>(R"({"link":{"href":"e"},"status":"d","message":"c","title":"b","id":"a"})"),
        alert);
    EXPECT_NE(alert, (ProductAlert{.id = "a", .title = "b", .message = "c", .status = "d"}));
}

TEST(ProductAlertURI, AppendsTheIdToThePathUnchanged) {
    test::expectAGet(ProductAlertURI({.with = "12"}), "v2/alert/12");
    test::expectAGet(ProductAlertURI({.with = ""}), "v2/alert/");
    test::expectAGet(ProductAlertURI({.with = "a b/c?d#%20"}), "v2/alert/a b/c?d#%20");
    EXPECT_EQ(ProductAlertURI({.with = "12"}).alertId, "12");
}

}  // namespace
}  // namespace VanticRestKit
