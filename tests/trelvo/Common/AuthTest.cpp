#include <gtest/gtest.h>
#include <VanticRestKit/trelvo/Common/Auth.h>
#include <VanticRestKit/trelvo/UserAuth.h>

#include <trelvo/Common/Shapes.h>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::Strictness;

test::EntityRules tokens() {
    return {.type = test::decodable<Auth>,
            .minimal = R"({"access_token":"a","refresh_token":"r","token_type":"t","expiry":5})",
            .fields = {{"accessToken", "access_token", Strictness::required, test::text()},
                       {"expiry", "expiry", Strictness::required, test::secondsSince1970()},
                       {"refreshToken", "refresh_token", Strictness::required, test::text()},
                       {"tokenType", "token_type", Strictness::required, test::text()}}};
}

TEST(Auth, HasFourFieldsInDeclaredOrder) {
    test::expectDeclaredFields(tokens());
    const Auth auth{
        .accessToken = "a", .expiry = Date(Date::duration(7.5)), .refreshToken = "r", .tokenType = "t"};
    EXPECT_EQ(decoded<Auth>(R"({"expiry":7.5,"token_type":"t","refresh_token":"r","access_token":"a"})"),
              auth);
}

TEST(Auth, RequiresAllFields) { test::expectFieldsInEveryState(tokens()); }

TEST(Auth, ReadsTheExpiryLast) {
    test::expectErrorsInOrder(
        tokens(),
        {{"access_token", "1"}, {"refresh_token", "null"}, {"token_type", "[]"}, {"expiry", "\"5\""}});
}

TEST(Auth, MustBeAnObject) { test::expectAnObjectOnly(test::decodable<Auth>); }

TEST(Auth, ReadsItsExpiryAsSecondsSince1970NeverAsAString) {
    const auto expiryOf = [](const std::string& number) {
        return decoded<Auth>(R"({"access_token":"","refresh_token":"","token_type":"","expiry":)" + number +
                             "}")
            .value_or(Auth{})
            .expiry.time_since_epoch()
            .count();
    };
    EXPECT_EQ(expiryOf("1614834367"), 1614834367.0);
    EXPECT_EQ(expiryOf("1614834367.125"), 1614834367.125);
    EXPECT_EQ(expiryOf("-12"), -12.0);
    EXPECT_EQ(expiryOf("1e308"), 1e308);
    EXPECT_EQ(
        test::failureOf<Auth>(
            R"({"access_token":"","refresh_token":"","token_type":"","expiry":"2021-03-04T05:06:07Z"})"),
        R"(typeMismatch ["expiry"])");
}

TEST(UserAuth, EqualsThatOfTheSameUserWithTheSameTokens) {
    const UserAuth auth{.uid = "u1", .auth = {.accessToken = "a"}};
    EXPECT_EQ(auth, (UserAuth{.uid = "u1", .auth = {.accessToken = "a"}}));
    EXPECT_NE(auth, (UserAuth{.uid = "u2", .auth = {.accessToken = "a"}}));
    EXPECT_NE(auth, (UserAuth{.uid = "u1", .auth = {.accessToken = "b"}}));
}

}  // namespace
}  // namespace VanticRestKit
