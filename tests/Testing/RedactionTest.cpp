#include <gtest/gtest.h>
#include <VanticRestKit/Testing/Redaction.h>

namespace VanticRestKit::Testing {
namespace {

TEST(RedactionTest, HidesHeadersThatContainSecrets) {
    const Redaction redaction;
    for (const char* name : {"Authorization", "cookie", "Set-Cookie", "X-API-Key", "X-Access-Token"}) {
        EXPECT_EQ(redaction.header(name, "secret value"), "REDACTED") << name;
    }
    EXPECT_EQ(redaction.header("Accept", "application/json"), "application/json");
}

TEST(RedactionTest, HidesQueryItemsAndFormFields) {
    const Redaction redaction;
    EXPECT_EQ(redaction.query("UID=1&access_token=abc&apikey=k&sessionId=s&flag&token"),
              "UID=1&access_token=REDACTED&apikey=REDACTED&sessionId=REDACTED&flag&token");
    EXPECT_EQ(redaction.query(""), "");
    EXPECT_EQ(redaction.body("a=1&password=x", "application/x-www-form-urlencoded"), "a=1&password=REDACTED");
    EXPECT_EQ(redaction.body("a=1&password=x", "text/plain"), "a=1&password=x");
}

TEST(RedactionTest, HidesTokensAtAnyDepthOfABodyAndExtendsTheirExpiry) {
    EXPECT_EQ(
        Redaction().body(
            R"({"data":[1],"auth":{"access_token":"a","refresh_token":"b","token_type":"Bearer","expiry":1.5}})",
            ""),
        R"({"data":[1],"auth":{"access_token":"REDACTED","refresh_token":"REDACTED","token_type":"Bearer","expiry":4102444800.0}})");
}

TEST(RedactionTest, ASecretBeforeOtherObjectsIsHidden) {
    EXPECT_EQ(Redaction().body(R"({"auth":{"token":"a"},"data":{"b":1}})", ""),
              R"({"auth":{"token":"REDACTED"},"data":{"b":1}})");
}

TEST(RedactionTest, OnlyTheExpiryOfATokenThatIsANumberIsExtended) {
    EXPECT_EQ(Redaction().body(R"({"token":"a"})", ""), R"({"token":"REDACTED"})");
    EXPECT_EQ(Redaction().body(R"({"token":"a","expiry":"soon"})", ""),
              R"({"token":"REDACTED","expiry":"soon"})");
    EXPECT_EQ(Redaction().body(R"({"a":{"token":"a"},"expiry":1})", ""),
              R"({"a":{"token":"REDACTED"},"expiry":1})");
}

TEST(RedactionTest, ABodyWithoutSecretsIsUnchanged) {
    constexpr const char* body = R"({ "big": 123456789012345678901234567890, "one": 1.0 })";
    EXPECT_EQ(Redaction().body(body, "application/json"), body);
}

TEST(RedactionTest, HidesAdditionalNamesGivenByTheHost) {
    const Redaction redaction({"UID"});
    EXPECT_EQ(redaction.query("uid=1&uids=2"), "uid=REDACTED&uids=2");
}

}  // namespace
}  // namespace VanticRestKit::Testing
