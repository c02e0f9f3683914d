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

Error answered(std::int64_t status, HTTPURLResponse::HeaderFields headers = {}) {
    const URL url = *URL::make("https://api.example.test/v2/time");
    const auto response = std::make_shared<const HTTPURLResponse>(url, status, std::move(headers));
    return NetworkError::httpError(URLRequest(url), response, std::nullopt);
}

std::optional<Seconds> waitAfter(std::int64_t status, const std::string& retryAfter) {
    const Error error = LoaderError::serverError(answered(status, {{"retry-after", retryAfter}}));
    return adviceOn(error, {.now = now}).retryAfter;
}

/// An error of an application that says its own category.
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

TEST(ErrorAdvice, ARetryAfterInSecondsIsAsItCame) {
    EXPECT_EQ(waitAfter(503, "120"), Seconds(120));
    EXPECT_EQ(waitAfter(429, "0"), Seconds(0));
    EXPECT_EQ(waitAfter(503, "007"), Seconds(7));
}

TEST(ErrorAdvice, ARetryAfterWithADateIsTheTimeUntilThen) {
    EXPECT_EQ(waitAfter(503, "Sun, 06 Nov 1994 08:50:37 GMT"), Seconds(60));
    EXPECT_EQ(waitAfter(503, "Sunday, 06-Nov-94 08:49:38 GMT"), Seconds(1));
    EXPECT_EQ(waitAfter(503, "Sun Nov  6 09:49:37 1994"), Seconds(3600));
}

TEST(ErrorAdvice, ARetryAfterWithADateThatHasPassedIsZero) {
    EXPECT_EQ(waitAfter(503, "Sun, 06 Nov 1994 08:49:36 GMT"), Seconds(0));
}

TEST(ErrorAdvice, ARetryAfterThatCannotBeReadIsNone) {
    for (const char* text : {"", "-1", "1.5", "soon", "12 s", " 12", "Sun, 06 Nov 1994"}) {
        EXPECT_EQ(waitAfter(503, text), std::nullopt) << text;
    }
}

TEST(ErrorAdvice, ARetryAfterOfAnyLengthIsANumber) {
    const auto wait = waitAfter(503, std::string(400, '9'));
    ASSERT_TRUE(wait.has_value());
    EXPECT_TRUE(std::isinf(wait->count()));
}

TEST(ErrorAdvice, ARetryAfterCountsOnlyIfTryingAgainMayHelp) {
    EXPECT_EQ(waitAfter(404, "5"), std::nullopt);
    EXPECT_EQ(waitAfter(501, "5"), std::nullopt);
}

TEST(ErrorAdvice, ADateCountsFromTheClockOfTheSystemIfNoInstantIsGiven) {
    const ErrorAdvice advice = adviceOn(answered(503, {{"Retry-After", "Sun, 06 Nov 1994 08:50:37 GMT"}}));
    EXPECT_EQ(advice.retryAfter, Seconds(0));
}

TEST(ErrorAdvice, AnAnswerWithoutTheHeaderNamesNoTime) {
    EXPECT_EQ(adviceOn(answered(503)).retryAfter, std::nullopt);
}

TEST(ErrorAdvice, TheSentenceIsTheEnglishOneOfTheCategory) {
    EXPECT_EQ(adviceOn(answered(404)).sentence, sentenceOf(ErrorCategory::notFound));
}

TEST(ErrorAdvice, AHostReplacesTheSentencesThatItNames) {
    const AdviceOptions german{.sentences = {{ErrorCategory::notFound, "Nicht mehr verfügbar."}}};
    EXPECT_EQ(adviceOn(answered(404), german).sentence, "Nicht mehr verfügbar.");
    EXPECT_EQ(adviceOn(answered(401), german).sentence, sentenceOf(ErrorCategory::unauthorized));
}

TEST(ErrorAdvice, AnErrorOfTheHostSaysItsOwnCategory) {
    const Error error = OwnError{.category = ErrorCategory::serverFailed, .cause = answered(404)};
    EXPECT_EQ(categoryOf(error), ErrorCategory::serverFailed);
    EXPECT_TRUE(adviceOn(error).mayTryAgain);
    EXPECT_EQ(categoryOf(LoaderError::serverError(error)), ErrorCategory::serverFailed);
}

TEST(ErrorAdvice, AnErrorOfTheHostThatSaysNothingIsLookedThrough) {
    EXPECT_EQ(categoryOf(OwnError{.cause = answered(410)}), ErrorCategory::notFound);
    EXPECT_EQ(categoryOf(OwnError{}), ErrorCategory::unknown);
}

TEST(ErrorAdvice, ACodeOfAnotherDomainIsNoStatus) {
    const URLRequest request(*URL::make("https://api.example.test/"));
    EXPECT_EQ(categoryOf(NetworkError::requestFailed(request, nullptr, OwnError{})), ErrorCategory::unknown);
}

TEST(ErrorAdvice, ANetworkErrorThatWasMadeAnNSErrorKeepsItsCategory) {
    const auto bridged = [](const Error& error) {
        return categoryOf(makeNSError({.networkServiceError = *error.as<NetworkError>()}));
    };
    const URLRequest request(*URL::make("https://api.example.test/"));
    EXPECT_EQ(bridged(answered(429)), ErrorCategory::tooManyRequests);
    const NSError timedOut(std::string(NSURLErrorDomain), -1001);
    EXPECT_EQ(bridged(NetworkError::requestFailed(request, nullptr, timedOut)), ErrorCategory::timedOut);
    EXPECT_EQ(bridged(NetworkError::notAHTTPResponse(request, nullptr, "")), ErrorCategory::badAnswer);
}

TEST(ErrorAdvice, AServerErrorThatHoldsNothingIsUnknown) {
    EXPECT_EQ(categoryOf(LoaderError::serverError(std::nullopt)), ErrorCategory::unknown);
}

TEST(ErrorAdvice, AnErrorInsideManyOthersIsFound) {
    Error error = answered(403);
    for (int depth = 0; depth < 10000; ++depth) error = LoaderError::serverError(error);
    EXPECT_EQ(categoryOf(error), ErrorCategory::forbidden);
    // Taken apart from the outside, for the sake of the stack.
    while (const auto inner = error.underlyingError()) error = *inner;
}

}  // namespace
}  // namespace VanticRestKit
