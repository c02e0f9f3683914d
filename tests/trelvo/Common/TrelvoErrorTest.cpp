#include <VanticRestKit/Core/LoaderError.h>
#include <VanticRestKit/Core/NetworkError.h>
#include <VanticRestKit/trelvo/Common/TrelvoError.h>

#include <gtest/gtest.h>
#include <vector>

namespace VanticRestKit {
namespace {

using Kind = TrelvoError::Kind;

const LoaderError undecodable = LoaderError::failedToDecode(std::nullopt);

std::vector<TrelvoError> everyCase() {
    return {TrelvoError::noAuthToken(undecodable),   TrelvoError::datasetNamespaceMismatch("a", "b"),
            TrelvoError::general(undecodable),       TrelvoError::unknown("m"),
            TrelvoError::datasetDoesNotExist(),      TrelvoError::noUid(),
            TrelvoError::accountReconsentRequired(), TrelvoError::unableToRetrieveHistoryData(),
            TrelvoError::unableToRetrieveSavedData()};
}

TEST(TrelvoError, HasADescriptionForEachCase) {
    std::vector<std::string> texts;
    for (const TrelvoError& error : everyCase()) texts.push_back(error.errorDescription());
    EXPECT_EQ(
        texts,
        (std::vector<std::string>{
            "No valid auth token was found.  The last call to the token endpoint produced this error: Unable "
            "to "
            "decode the server response",
            R"(Dataset namespace mismatch. Expected: "a". Actual: "b")",
            "Unable to decode the server response",
            "Unknown error: m",
            "The requested dataset doesn't exist, either because it was deleted, or hasn't yet been created.",
            "Got nil uid from TrelvoContext.",
            "Token request denied because account is unauthorized, likely because reconsent is required.",
            "Unable to retrieve history data",
            "Unable to retrieve saved data",
        }));
}

TEST(TrelvoError, HasTheSameDescriptionAsAnError) {
    for (const TrelvoError& error : everyCase()) {
        const Error general = error;
        EXPECT_EQ(error.localizedDescription(), error.errorDescription());
        EXPECT_EQ(general.localizedDescription(), error.errorDescription());
        ASSERT_NE(general.as<TrelvoError>(), nullptr);
        EXPECT_EQ(*general.as<TrelvoError>(), error);
    }
}

TEST(TrelvoError, HasTheIndexOfItsCaseAsCode) {
    std::int64_t place = 0;
    for (const TrelvoError& error : everyCase()) {
        EXPECT_EQ(error.errorCode(), place);
        EXPECT_EQ(Error(error).code(), place);
        EXPECT_EQ(Error(error).domain(), "VanticRestKit.TrelvoError");
        ++place;
    }
}

TEST(TrelvoError, WithoutAMessageHasNoMoreInformation) {
    EXPECT_EQ(TrelvoError::unknown(std::nullopt).errorDescription(),
              "Unknown error: No more information available");
    EXPECT_EQ(TrelvoError::unknown("").errorDescription(), "Unknown error: ");
}

TEST(TrelvoError, ShowsAnAbsentNamespaceAsNilInQuotes) {
    EXPECT_EQ(TrelvoError::datasetNamespaceMismatch("profile", std::nullopt).errorDescription(),
              R"(Dataset namespace mismatch. Expected: "profile". Actual: "nil")");
    EXPECT_EQ(TrelvoError::datasetNamespaceMismatch(std::nullopt, "").errorDescription(),
              R"(Dataset namespace mismatch. Expected: "nil". Actual: "")");
}

TEST(TrelvoError, DescribesAFailedRequestLikeTheLoadersError) {
    const LoaderError failed = LoaderError::serverError(NetworkError::internalSDKError("lost"));
    EXPECT_EQ(TrelvoError::general(failed).errorDescription(), failed.localizedDescription());
    EXPECT_EQ(TrelvoError::noAuthToken(failed).errorDescription(),
              "No valid auth token was found.  The last call to the token endpoint produced this error: " +
                  failed.localizedDescription());
    EXPECT_EQ(TrelvoError::general(LoaderError::serverError(std::nullopt)).errorDescription(),
              "Unknown server error");
}

TEST(TrelvoError, HasOnlyThePayloadOfItsCase) {
    for (const TrelvoError& error : everyCase()) {
        const bool holdsError = error.kind() == Kind::noAuthToken || error.kind() == Kind::general;
        EXPECT_EQ(error.underlyingError().has_value(), holdsError);
        EXPECT_EQ(holdsError && error.underlyingError()->as<LoaderError>() != nullptr, holdsError);
        EXPECT_EQ(error.message().has_value(), error.kind() == Kind::unknown) << error.errorDescription();
        EXPECT_EQ(error.expected().has_value(), error.kind() == Kind::datasetNamespaceMismatch)
            << error.errorDescription();
        EXPECT_EQ(error.actual().has_value(), error.kind() == Kind::datasetNamespaceMismatch);
    }
}

TEST(TrelvoError, EqualsErrorsOfTheSameCase) {
    const std::vector<TrelvoError> cases = everyCase();
    for (std::size_t a = 0; a < cases.size(); ++a) {
        for (std::size_t b = 0; b < cases.size(); ++b) EXPECT_EQ(cases[a] == cases[b], a == b);
    }
    EXPECT_TRUE(TrelvoError::unknown("a") == TrelvoError::unknown("b"));
}

TEST(TrelvoError, FindsTheNetworkErrorAtAnyDepth) {
    const NetworkError timedOut = NetworkError::requestFailed(URLRequest(URL("https://user.example.test")),
                                                              nullptr, NSError("NSURLErrorDomain", -1001));
    const TrelvoError loading = TrelvoError::general(LoaderError::serverError(timedOut));
    for (const TrelvoError& failure :
         {loading, TrelvoError::noAuthToken(loading), TrelvoError::general(timedOut)}) {
        ASSERT_NE(failure.networkError(), nullptr);
        EXPECT_EQ(failure.networkError()->kind(), NetworkError::Kind::requestFailed);
        ASSERT_NE(failure.transportError(), nullptr);
        EXPECT_EQ(failure.transportError()->code(), -1001);
    }
}

TEST(TrelvoError, HasNoNetworkErrorIfItContainsNone) {
    const TrelvoError undecoded = TrelvoError::general(LoaderError::failedToDecode(NSError("D", 1)));
    const TrelvoError foreign = TrelvoError::general(NSError("D", 1));
    for (const TrelvoError& failure : {TrelvoError::noUid(), TrelvoError::unknown("x"), undecoded, foreign,
                                       TrelvoError::general(foreign)}) {
        EXPECT_EQ(failure.networkError(), nullptr);
        EXPECT_EQ(failure.transportError(), nullptr);
    }
}

}  // namespace
}  // namespace VanticRestKit
