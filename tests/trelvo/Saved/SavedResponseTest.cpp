#include <gtest/gtest.h>
#include <VanticRestKit/trelvo/Saved/SavedResponse.h>

#include <trelvo/Common/Shapes.h>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::Strictness;

const std::string good = R"({"oid":"o","slug":"s","namespace":"n","key":"$","order":1})";
const std::string goodShown =
    R"({"source":null,"oid":"o","slug":"s","namespace":"n","key":"$","order":1,"created":null,"updated":null})";
const std::string withoutOrder = R"({"oid":"o","slug":"s","namespace":"n","key":"k"})";

test::EntityRules answers() {
    return {
        .type = test::decodable<SavedResponse>,
        .minimal = "{}",
        .fields = {{"meta", "meta", Strictness::lenient, test::metaObject()},
                   {"data", "data", Strictness::lenient,
                    test::listOf("null",
                                 {{"[" + good + "," + good + "]", "[" + goodShown + "," + goodShown + "]"},
                                  {"[]", "[]"}},
                                 {withoutOrder})},
                   {"auth", "auth", Strictness::lenient, test::authObject()}}};
}

std::optional<SavedResponse> answerOf(const std::string& members) {
    const auto answer = decoded<SavedResponse>("{" + members + "}");
    EXPECT_TRUE(answer) << members;
    return answer;
}

TEST(SavedResponse, HasThreeFieldsInDeclaredOrder) {
    test::expectDeclaredFields(answers());
    const SavedResponse answer{
        .meta = ResponseMeta{.count = 0}, .data = std::vector<SavedData>{}, .auth = Auth{.accessToken = "a"}};
    EXPECT_EQ(
        answerOf(
            R"("auth":{"access_token":"a","expiry":0,"refresh_token":"","token_type":""},"meta":{"count":0},"data":[])"),
        answer);
}

TEST(SavedResponse, DecodesWhateverItsFieldsContain) { test::expectFieldsInEveryState(answers()); }

TEST(SavedResponse, DistinguishesAnEmptyListFromNone) {
    ASSERT_TRUE(answerOf(R"("data":[])")->data);
    EXPECT_TRUE(answerOf(R"("data":[])")->data->empty());
    EXPECT_FALSE(answerOf("")->data);
    EXPECT_FALSE(answerOf(R"("data":null)")->data);
    EXPECT_FALSE(answerOf(R"("data":"[]")")->data);
}

TEST(SavedResponse, HasNoRecordsIfOneLacksItsOrderButKeepsItsTokens) {
    const std::string tokens = R"("auth":{"access_token":"a","expiry":0,"refresh_token":"","token_type":""})";
    EXPECT_EQ(answerOf(tokens + R"(,"data":[)" + good + "," + good + "]")->data->size(), 2U);
    const auto bad = answerOf(tokens + R"(,"data":[)" + good + "," + withoutOrder + "," + good + "]");
    EXPECT_FALSE(bad->data);
    EXPECT_EQ(bad->auth, Auth{.accessToken = "a"});
}

TEST(SavedResponse, MustBeAnObject) { test::expectAnObjectOnly(test::decodable<SavedResponse>); }

}  // namespace
}  // namespace VanticRestKit
