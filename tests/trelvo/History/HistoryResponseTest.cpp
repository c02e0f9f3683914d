#include <gtest/gtest.h>
#include <VanticRestKit/trelvo/History/HistoryResponse.h>

#include <trelvo/Common/Shapes.h>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::Strictness;

const std::string good =
    R"({"uid":"u","oid":"o","slug":"s","namespace":"n","key":"$","progress":1,"done":true})";
const std::string goodShown =
    R"({"source":null,"uid":"u","oid":"o","slug":"s","namespace":"n","key":"$","progress":1,"done":true,"lastAccessed":null})";
const std::string withoutProgress =
    R"({"uid":"u","oid":"o","slug":"s","namespace":"n","key":"k","done":true})";

test::EntityRules answers() {
    return {
        .type = test::decodable<HistoryResponse>,
        .minimal = "{}",
        .fields = {{"meta", "meta", Strictness::lenient, test::metaObject()},
                   {"data", "data", Strictness::lenient,
                    test::listOf("null",
                                 {{"[" + good + "," + good + "]", "[" + goodShown + "," + goodShown + "]"},
                                  {"[]", "[]"}},
                                 {withoutProgress})},
                   {"auth", "auth", Strictness::lenient, test::authObject()}}};
}

std::optional<std::vector<HistoryData>> dataOf(const std::string& members) {
    const auto answer = decoded<HistoryResponse>("{" + members + "}");
    EXPECT_TRUE(answer) << members;
    return answer ? answer->data : std::nullopt;
}

TEST(HistoryResponse, HasThreeFieldsInDeclaredOrder) {
    test::expectDeclaredFields(answers());
    const HistoryResponse answer{.meta = ResponseMeta{.count = 0},
                                 .data = std::vector<HistoryData>{},
                                 .auth = Auth{.accessToken = "a"}};
    EXPECT_EQ(
        decoded<HistoryResponse>(
            R"({"auth":{"access_token":"a","expiry":0,"refresh_token":"","token_type":""},"meta":{"count":0},"data":[]})"),
        answer);
}

TEST(HistoryResponse, DecodesWhateverItsFieldsContain) { test::expectFieldsInEveryState(answers()); }

TEST(HistoryResponse, DistinguishesAnEmptyListFromNone) {
    ASSERT_TRUE(dataOf(R"("data":[])"));
    EXPECT_TRUE(dataOf(R"("data":[])")->empty());
    EXPECT_FALSE(dataOf(""));
    EXPECT_FALSE(dataOf(R"("data":null)"));
    EXPECT_FALSE(dataOf(R"("data":{})"));
}

TEST(HistoryResponse, HasNoRecordsIfOneLacksItsProgress) {
    EXPECT_EQ(dataOf(R"("data":[)" + good + "," + good + "]")->size(), 2U);
    EXPECT_FALSE(dataOf(R"("data":[)" + good + "," + withoutProgress + "," + good + "]"));
}

TEST(HistoryResponse, MustBeAnObject) { test::expectAnObjectOnly(test::decodable<HistoryResponse>); }

}  // namespace
}  // namespace VanticRestKit
