#include <gtest/gtest.h>
#include <VanticRestKit/Core/ErrorAdvice.h>
#include <VanticRestKit/Core/LoaderError.h>
#include <VanticRestKit/Core/NetworkError.h>
#include <VanticRestKit/platform/http/HTTPURLResponse.h>
#include <VanticRestKit/platform/http/URLErrorCode.h>

#include <cmath>
#include <memory>
#include <optional>
#include <string>

namespace VanticRestKit {
namespace {

using Seconds = std::chrono::duration<double>;

// Sun, 06 Nov 1994 08:49:37 GMT
constexpr Date now(Seconds(784111777));

Error statusError(std::int64_t status, HTTPURLResponse::HeaderFields headers = {}) {
    const URL url = *URL::make("https://api.example.test/v2/time");
    const auto response = std::make_shared<const HTTPURLResponse>(url, status, std::move(headers));
    return NetworkError::httpError(URLRequest(url), response, std::nullopt);
}

std::optional<Seconds> waitFor(std::int64_t status, const std::string& retryAfter) {
    const Error error = LoaderError::serverError(statusError(status, {{"retry-after", retryAfter}}));
    return adviceOn(error, {.now = now}).retryAfter;
}

/// An application's own error type, which states its category.
struct OwnError {
    std::optional<ErrorCategory> category{};
    std::optional<Error> cause{};

    static const ErrorTag& errorTag() {
        static const ErrorTag tag;
        return tag;
    }
    static std::string errorDomain() { return "Host"; }
    static std::int64_t errorCode() { return 404; }
    std::optional<ErrorCategory> errorCategory() const { return category; }
    std::optional<Error> underlyingError() const { return cause; }
};

TEST(ErrorAdvice, ARetryAfterInSecondsIsReturnedUnchanged) {
    EXPECT_EQ(waitFor(503, "120"), Seconds(120));
    EXPECT_EQ(waitFor(429, "0"), Seconds(0));
    EXPECT_EQ(waitFor(503, "007"), Seconds(7));
}

TEST(ErrorAdvice, ARetryAfterWithADateIsTheTimeUntilThen) {
    EXPECT_EQ(waitFor(503, "Sun, 06 Nov 1994 08:50:37 GMT"), Seconds(60));
    EXPECT_EQ(waitFor(503, "Sunday, 06-Nov-94 08:49:38 GMT"), Seconds(1));
    EXPECT_EQ(waitFor(503, "Sun Nov  6 09:49:37 1994"), Seconds(3600));
}

TEST(ErrorAdvice, ARetryAfterWithADateThatHasPassedIsZero) {
    EXPECT_EQ(waitFor(503, "Sun, 06 Nov 1994 08:49:36 GMT"), Seconds(0));
}

TEST(ErrorAdvice, AnInvalidRetryAfterIsIgnored) {
    for (const char* text : {"", "-1", "1.5", "soon", "12 s", " 12", "Sun, 06 Nov 1994"}) {
        EXPECT_EQ(waitFor(503, text), std::nullopt) << text;
    }
}

TEST(ErrorAdvice, ARetryAfterWithTooManyDigitsIsInfinite) {
    const auto wait = waitFor(503, std::string(400, '9'));
    ASSERT_TRUE(wait.has_value());
    EXPECT_TRUE(std::isinf(wait->count()));
}

TEST(ErrorAdvice, RetryAfterIsUsedOnlyIfARetryMayHelp) {
    EXPECT_EQ(waitFor(404, "5"), std::nullopt);
    EXPECT_EQ(waitFor(501, "5"), std::nullopt);
}

TEST(ErrorAdvice, ADateIsComparedWithTheSystemClockByDefault) {
    const ErrorAdvice advice = adviceOn(statusError(503, {{"Retry-After", "Sun, 06 Nov 1994 08:50:37 GMT"}}));
    EXPECT_EQ(advice.retryAfter, Seconds(0));
}

TEST(ErrorAdvice, AResponseWithoutTheHeaderGivesNoWait) {
    EXPECT_EQ(adviceOn(statusError(503)).retryAfter, std::nullopt);
}

TEST(ErrorAdvice, EachCategoryHasAnEnglishSentence) {
    EXPECT_EQ(adviceOn(statusError(404)).sentence, sentenceOf(ErrorCategory::notFound));
}

TEST(ErrorAdvice, AHostCanReplaceTheSentenceOfACategory) {
    const AdviceOptions german{.sentences = {{ErrorCategory::notFound, "Nicht mehr verfügbar."}}};
    EXPECT_EQ(adviceOn(statusError(404), german).sentence, "Nicht mehr verfügbar.");
    EXPECT_EQ(adviceOn(statusError(401), german).sentence, sentenceOf(ErrorCategory::unauthorized));
}

TEST(ErrorAdvice, AHostErrorCanStateItsCategory) {
    const Error error = OwnError{.category = ErrorCategory::serverFailed, .cause = statusError(404)};
    EXPECT_EQ(categoryOf(error), ErrorCategory::serverFailed);
    EXPECT_TRUE(adviceOn(error).mayTryAgain);
    EXPECT_EQ(categoryOf(LoaderError::serverError(error)), ErrorCategory::serverFailed);
}

TEST(ErrorAdvice, ACategoryThatAHostErrorStatesDeterminesWhetherARetryMayHelp) {
    for (const ErrorCategory category : {ErrorCategory::offline, ErrorCategory::timedOut,
                                         ErrorCategory::tooManyRequests, ErrorCategory::serverFailed}) {
        EXPECT_TRUE(adviceOn(OwnError{.category = category}).mayTryAgain) << sentenceOf(category);
    }
    for (const ErrorCategory category :
         {ErrorCategory::cancelled, ErrorCategory::insecure, ErrorCategory::unauthorized,
          ErrorCategory::forbidden, ErrorCategory::notFound, ErrorCategory::badAnswer,
          ErrorCategory::wrongUse, ErrorCategory::unknown}) {
        EXPECT_FALSE(adviceOn(OwnError{.category = category}).mayTryAgain) << sentenceOf(category);
    }
}

TEST(ErrorAdvice, AHostErrorWithoutACategoryHasThatOfItsCause) {
    EXPECT_EQ(categoryOf(OwnError{.cause = statusError(410)}), ErrorCategory::notFound);
    EXPECT_EQ(categoryOf(OwnError{}), ErrorCategory::unknown);
}

TEST(ErrorAdvice, ACodeOfAnotherDomainIsNotAStatus) {
    const URLRequest request(*URL::make("https://api.example.test/"));
    EXPECT_EQ(categoryOf(NetworkError::requestFailed(request, nullptr, OwnError{})), ErrorCategory::unknown);
}

TEST(ErrorAdvice, ANetworkErrorConvertedToAnNSErrorKeepsItsCategory) {
    const auto bridged = [](const Error& error) {
        return categoryOf(makeNSError({.networkServiceError = *error.as<NetworkError>()}));
    };
    const URLRequest request(*URL::make("https://api.example.test/"));
    EXPECT_EQ(bridged(statusError(429)), ErrorCategory::tooManyRequests);
    const NSError timedOut(std::string(NSURLErrorDomain), -1001);
    EXPECT_EQ(bridged(NetworkError::requestFailed(request, nullptr, timedOut)), ErrorCategory::timedOut);
    EXPECT_EQ(bridged(NetworkError::notAHTTPResponse(request, nullptr, "")), ErrorCategory::badAnswer);
}

TEST(ErrorAdvice, AServerErrorWithoutAPayloadIsUnknown) {
    EXPECT_EQ(categoryOf(LoaderError::serverError(std::nullopt)), ErrorCategory::unknown);
}

TEST(ErrorAdvice, ADeeplyNestedErrorIsFound) {
    Error error = statusError(403);
    for (int depth = 0; depth < 10000; ++depth) error = LoaderError::serverError(error);
    EXPECT_EQ(categoryOf(error), ErrorCategory::forbidden);
    // Destroyed from the outside in: nested destructors would exhaust the stack.
    while (const auto inner = error.underlyingError()) error = *inner;
}

}  // namespace
}  // namespace VanticRestKit
