#include <gtest/gtest.h>
#include <VanticRestKit/trelvo/Dataset/DatasetResponse.h>

#include <trelvo/Common/Shapes.h>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::Strictness;

test::Shape containers() {
    const std::string empty =
        R"("parentUid":null,"oid":null,"source":null,"namespace":null,"dataset":{},"created":null,"updated":null)";
    test::Shape shape = test::listOf("[]",
                                     {{R"([{"uid":"$","dataset":{}},{"dataset":{},"uid":"b","oid":7}])",
                                       R"([{"uid":"$",)" + empty + R"(},{"uid":"b",)" + empty + "}]"},
                                      {"[]", "[]"}},
                                     {R"({"dataset":{}})"});
    shape.unfit.push_back({R"([{"uid":"a","dataset":{}},{"uid":"b"}])"});
    return shape;
}

test::EntityRules answers() {
    return {.type = test::decodable<DatasetResponse>,
            .minimal = "{}",
            .fields = {{"meta", "meta", Strictness::lenient, test::metaObject()},
                       {"data", "data", Strictness::lenient, containers()},
                       {"auth", "auth", Strictness::lenient, test::authObject()}}};
}

std::size_t countOf(const std::string& data) {
    const auto answer = decoded<DatasetResponse>(R"({"data":)" + data + "}");
    EXPECT_TRUE(answer) << data;
    return answer ? answer->data.size() : 1000;
}

TEST(DatasetResponse, HasThreeFieldsInDeclaredOrder) {
    test::expectDeclaredFields(answers());
    const DatasetResponse answer{
        .meta = ResponseMeta{.count = 1}, .data = {{.uid = "u"}}, .auth = Auth{.accessToken = "a"}};
    EXPECT_EQ(
        decoded<DatasetResponse>(
            R"({"auth":{"access_token":"a","expiry":0,"refresh_token":"","token_type":""},"meta":{"count":1},)"
            R"("data":[{"uid":"u","dataset":{}}]})"),
        answer);
}

TEST(DatasetResponse, DecodesWhateverItsFieldsContain) { test::expectFieldsInEveryState(answers()); }

TEST(DatasetResponse, HasNoContainersIfOneLacksItsUidOrItsDataset) {
    EXPECT_EQ(countOf(R"([{"uid":"a","dataset":{}},{"uid":"b","dataset":{}}])"), 2U);
    EXPECT_EQ(countOf(R"([{"uid":"a","dataset":{}},{"dataset":{}}])"), 0U);
    EXPECT_EQ(countOf(R"([{"uid":"a"},{"uid":"b","dataset":{}}])"), 0U);
    EXPECT_EQ(countOf(R"([{"uid":"a","dataset":{}},{"uid":"b","dataset":null}])"), 0U);
}

TEST(DatasetResponse, KeepsItsTokensIfAContainerIsFaulty) {
    const auto answer = decoded<DatasetResponse>(
        R"({"data":[{}],"auth":{"access_token":"a","expiry":0,"refresh_token":"","token_type":""}})");
    ASSERT_TRUE(answer);
    EXPECT_TRUE(answer->data.empty());
    EXPECT_EQ(answer->auth, Auth{.accessToken = "a"});
}

TEST(DatasetResponse, MustBeAnObject) { test::expectAnObjectOnly(test::decodable<DatasetResponse>); }

}  // namespace
}  // namespace VanticRestKit
