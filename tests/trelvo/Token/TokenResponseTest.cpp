#include <gtest/gtest.h>
#include <VanticRestKit/trelvo/Token/TokenResponse.h>

#include <trelvo/Common/Shapes.h>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::Strictness;

test::EntityRules answers() {
    return {.type = test::decodable<TokenResponse>,
            .minimal = "{}",
            .fields = {{"meta", "meta", Strictness::lenient, test::metaObject()},
                       {"auth", "auth", Strictness::lenient, test::authObject()}}};
}

TEST(TokenResponse, HasTwoFieldsInDeclaredOrder) {
    test::expectDeclaredFields(answers());
    const TokenResponse answer{.meta = ResponseMeta{.count = 1}, .auth = Auth{.accessToken = "a"}};
    EXPECT_EQ(
        decoded<TokenResponse>(
            R"({"auth":{"access_token":"a","expiry":0,"refresh_token":"","token_type":""},"meta":{"count":1}})"),
        answer);
}

TEST(TokenResponse, DecodesWhateverItsFieldsContain) { test::expectFieldsInEveryState(answers()); }

TEST(TokenResponse, HasNoTokensIfOnePartOfThemIsFaulty) {
    const std::string full = R"({"access_token":"a","expiry":1,"refresh_token":"r","token_type":"t"})";
    const auto decodes = [](const std::string& auth) {
        const auto answer = decoded<TokenResponse>(R"({"meta":{"status_code":200},"auth":)" + auth + "}");
        EXPECT_TRUE(answer && answer->meta) << auth;
        return answer && answer->auth;
    };
    EXPECT_TRUE(decodes(full));
    EXPECT_FALSE(decodes(R"({"access_token":"a","refresh_token":"r","token_type":"t"})"));
    EXPECT_FALSE(decodes(R"({"access_token":"a","expiry":"1","refresh_token":"r","token_type":"t"})"));
}

TEST(TokenResponse, MustBeAnObject) { test::expectAnObjectOnly(test::decodable<TokenResponse>); }

}  // namespace
}  // namespace VanticRestKit
