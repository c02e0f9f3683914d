#include <gtest/gtest.h>
#include <VanticRestKit/Core/lumenoSDKError.h>
#include <VanticRestKit/Core/URLError.h>

#include <unordered_set>

namespace VanticRestKit {
namespace {

TEST(URLError, IsAnErrorThatCanBeComparedAndHashed) {
    const URLError error = URLError::buildUrlRequestError();
    EXPECT_EQ(error, URLError::buildUrlRequestError());
    EXPECT_EQ((std::unordered_set<URLError>{error, URLError::buildUrlRequestError()}).size(), 1U);
    const Error general = error;
    EXPECT_EQ(general.domain(), "VanticRestKit.URLError");
    EXPECT_EQ(general.code(), 0);
    ASSERT_NE(general.as<URLError>(), nullptr);
    EXPECT_EQ(general.as<URLError>()->kind(), URLError::Kind::buildUrlRequestError);
}

TEST(lumenoSDKError, ReportsWhatWasMissing) {
    const lumenoSDKError error = lumenoSDKError::initializationError("Missing href");
    EXPECT_EQ(error.message(), "Missing href");
    EXPECT_EQ(error.localizedDescription(), "Missing href");
    EXPECT_EQ(error.kind(), lumenoSDKError::Kind::initializationError);
    const Error general = error;
    EXPECT_EQ(general.localizedDescription(), "Missing href");
    EXPECT_EQ(general.domain(), "VanticRestKit.lumenoSDKError");
    EXPECT_EQ(general.code(), 0);
    ASSERT_NE(general.as<lumenoSDKError>(), nullptr);
    EXPECT_EQ(general.as<lumenoSDKError>()->message(), "Missing href");
}

TEST(lumenoSDKError, ComparesByCaseOnly) {
    EXPECT_EQ(lumenoSDKError::initializationError("a"), lumenoSDKError::initializationError("b"));
}

}  // namespace
}  // namespace VanticRestKit
