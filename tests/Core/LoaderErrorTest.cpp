#include <gtest/gtest.h>
#include <VanticRestKit/Core/Loader.h>
#include <VanticRestKit/Core/LoaderError.h>
#include <VanticRestKit/Core/NetworkError.h>

#include <Core/FakeContext.h>

namespace VanticRestKit {
namespace {

static_assert(std::is_same_v<Loader<double>::LoaderError, LoaderError>);
static_assert(std::is_same_v<Loader<double>::LoaderError, Loader<bool>::LoaderError>);

LoaderError httpFailure(std::int64_t status) {
    return LoaderError::serverError(NetworkError::httpError(URLRequest(test::url("https://api.example.test")),
                                                            test::httpResponse(status), std::nullopt));
}

TEST(LoaderError, AServerErrorHasTheDescriptionOfItsPayload) {
    const LoaderError error = httpFailure(500);
    EXPECT_EQ(
        error.localizedDescription(),
        "The operation couldn\u2019t be completed. (dev.vantic.VanticRestKit.networkService error 500.)");
    ASSERT_TRUE(error.underlyingError());
    ASSERT_NE(error.underlyingError()->as<NetworkError>(), nullptr);
    EXPECT_EQ(error.underlyingError()->as<NetworkError>()->localizedDescription(), "Got response 500");
}

TEST(LoaderError, AServerErrorWithoutAPayloadIsDescribedAsUnknown) {
    EXPECT_EQ(LoaderError::serverError(std::nullopt).localizedDescription(), "Unknown server error");
}

TEST(LoaderError, ADecodingFailureHasTheSameDescriptionForEveryPayload) {
    EXPECT_EQ(LoaderError::failedToDecode(std::nullopt).localizedDescription(),
              "Unable to decode the server response");
    EXPECT_EQ(LoaderError::failedToDecode(NSError("D", 1)).localizedDescription(),
              "Unable to decode the server response");
}

TEST(LoaderError, TheUnusedCasesHaveDescriptions) {
    EXPECT_EQ(LoaderError::unknowError().localizedDescription(), "Unknown error");
    EXPECT_EQ(LoaderError::unknownResponse().localizedDescription(), "Unknown response");
    EXPECT_EQ(LoaderError::loaderStateError().localizedDescription(), "Loaded in incorrect state");
}

TEST(LoaderError, Is404ForAnHTTPErrorWith404Only) {
    EXPECT_TRUE(httpFailure(404).is404Error());
    EXPECT_FALSE(httpFailure(500).is404Error());
    EXPECT_FALSE(LoaderError::serverError(std::nullopt).is404Error());
    EXPECT_FALSE(LoaderError::serverError(NSError("D", 404)).is404Error());
    EXPECT_FALSE(LoaderError::failedToDecode(httpFailure(404).underlyingError()).is404Error());
    EXPECT_FALSE(LoaderError::unknowError().is404Error());
    const NetworkError requestFailedWith404 = NetworkError::requestFailed(
        URLRequest(test::url("https://api.example.test")), test::httpResponse(404), NSError("D", 404));
    EXPECT_FALSE(LoaderError::serverError(requestFailedWith404).is404Error());
}

TEST(LoaderError, FindsTheNetworkErrorAtAnyDepth) {
    const LoaderError failure = httpFailure(404);
    ASSERT_NE(failure.networkError(), nullptr);
    EXPECT_EQ(failure.networkError()->errorCode(), 404);
    EXPECT_EQ(failure.networkError(), failure.underlyingError()->as<NetworkError>());
    const LoaderError outer = LoaderError::serverError(LoaderError::serverError(failure));
    ASSERT_NE(outer.networkError(), nullptr);
    EXPECT_EQ(outer.networkError()->errorCode(), 404);
}

TEST(LoaderError, HasNoNetworkErrorIfItContainsNone) {
    EXPECT_EQ(LoaderError::serverError(std::nullopt).networkError(), nullptr);
    EXPECT_EQ(LoaderError::serverError(NSError("D", 404)).networkError(), nullptr);
    EXPECT_EQ(LoaderError::failedToDecode(NSError("D", 1)).networkError(), nullptr);
    EXPECT_EQ(LoaderError::unknowError().networkError(), nullptr);
}

TEST(LoaderError, FindsTheErrorOfTheTransport) {
    const URLRequest request(test::url("https://api.example.test"));
    const LoaderError failure = LoaderError::serverError(
        NetworkError::requestFailed(request, nullptr, NSError("NSURLErrorDomain", -1001)));
    ASSERT_NE(failure.transportError(), nullptr);
    EXPECT_EQ(failure.transportError()->code(), -1001);
    EXPECT_EQ(httpFailure(404).transportError(), nullptr);
    EXPECT_EQ(LoaderError::serverError(NSError("D", 404)).transportError(), nullptr);
    const LoaderError ofAnotherKind =
        LoaderError::serverError(NetworkError::requestFailed(request, nullptr, LoaderError::unknowError()));
    EXPECT_NE(ofAnotherKind.networkError(), nullptr);
    EXPECT_EQ(ofAnotherKind.transportError(), nullptr);
}

TEST(LoaderError, IsDescribedTheSameWayAsAnError) {
    const Error general = LoaderError::failedToDecode(NSError("D", 1));
    EXPECT_EQ(general.localizedDescription(), "Unable to decode the server response");
    EXPECT_EQ(general.domain(), "VanticRestKit.Loader.LoaderError");
    EXPECT_EQ(general.code(), 1);
}

TEST(LoaderError, ComparesByCaseOnly) {
    EXPECT_EQ(httpFailure(404), httpFailure(500));
    EXPECT_NE(httpFailure(404), LoaderError::unknowError());
}

}  // namespace
}  // namespace VanticRestKit
