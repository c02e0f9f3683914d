#include <gtest/gtest.h>
#include <VanticRestKit/trelvo/Common/ResponseMeta.h>

#include <trelvo/Common/Shapes.h>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::Strictness;

test::EntityRules facts() {
    test::Shape number = test::unsignedNumber();
    return {.type = test::decodable<ResponseMeta>,
            .minimal = "{}",
            .fields = {{"count", "count", Strictness::optional, number},
                       {"data", "data", Strictness::optional, test::text()},
                       {"statusCode", "status_code", Strictness::optional, number}}};
}

TEST(ResponseMeta, HasThreeFieldsInDeclaredOrder) {
    test::expectDeclaredFields(facts());
    const ResponseMeta meta{.count = 2, .data = "d", .statusCode = 404};
    EXPECT_EQ(decoded<ResponseMeta>(R"({"status_code":404,"data":"d","count":2,"statusCode":1})"), meta);
}

TEST(ResponseMeta, HasOptionalFieldsThatFailForAnotherType) {
    test::expectFieldsInEveryState(facts());
    test::expectErrorsInOrder(facts(), {{"count", "\"1\""}, {"data", "1"}, {"status_code", "-1"}});
}

TEST(ResponseMeta, MustBeAnObject) { test::expectAnObjectOnly(test::decodable<ResponseMeta>); }

}  // namespace
}  // namespace VanticRestKit
