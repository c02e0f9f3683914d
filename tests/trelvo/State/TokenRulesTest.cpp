#include <gtest/gtest.h>
#include <VanticRestKit/Core/LoaderError.h>
#include <VanticRestKit/Core/NetworkError.h>
#include <VanticRestKit/platform/error/NSError.h>
#include <VanticRestKit/platform/http/HTTPURLResponse.h>
#include <VanticRestKit/trelvo/State/detail/TokenRules.h>

namespace VanticRestKit::detail {
namespace {

LoaderError statusError(std::int64_t status) {
    const URL url("https://service.example/v2/token");
    return LoaderError::serverError(NetworkError::httpError(
        URLRequest(url), std::make_shared<const HTTPURLResponse>(url, status), std::nullopt));
}

TEST(TokenRules, OnlyAStatusOf401IsUnauthorized) {
    EXPECT_TRUE(isUnauthorized(statusError(401)));
    EXPECT_FALSE(isUnauthorized(statusError(403)));
    EXPECT_FALSE(isUnauthorized(LoaderError::serverError(NSError("D", 401))));
    EXPECT_FALSE(isUnauthorized(LoaderError::failedToDecode(NSError("D", 401))));
    EXPECT_FALSE(isUnauthorized(LoaderError::serverError(std::nullopt)));
}

TEST(TokenRules, AnUnauthorizedTokenRequestNeedsConsent) {
    EXPECT_EQ(tokenRequestError(statusError(401)).kind(), TrelvoError::Kind::accountReconsentRequired);
    EXPECT_EQ(tokenRequestError(statusError(500)).kind(), TrelvoError::Kind::noAuthToken);
    EXPECT_EQ(tokenRequestError(LoaderError::serverError(std::nullopt)).kind(),
              TrelvoError::Kind::noAuthToken);
}

TEST(TokenRules, ATokenMustLastMoreThanFiveSeconds) {
    EXPECT_FALSE(lastsLongEnough(5));
    EXPECT_TRUE(lastsLongEnough(5.5));
}

TEST(TokenRules, AnOperationWithoutATokenFailsWithTheLastTokenError) {
    EXPECT_EQ(noTokenError("list", TrelvoError::noUid()).kind(), TrelvoError::Kind::noUid);
    EXPECT_EQ(noTokenError("list", std::nullopt).kind(), TrelvoError::Kind::unknown);
}

}  // namespace
}  // namespace VanticRestKit::detail
