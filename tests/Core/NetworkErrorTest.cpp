#include <gtest/gtest.h>
#include <VanticRestKit/Core/LoaderError.h>
#include <VanticRestKit/Core/NetworkError.h>
#include <VanticRestKit/Core/NetworkServiceble.h>
#include <VanticRestKit/platform/http/HTTPURLResponse.h>

#include <Core/FakeContext.h>

namespace VanticRestKit {
namespace {

static_assert(std::is_same_v<NetworkServiceble::NetworkError, NetworkError>);

URLRequest requestOf(const char* address) { return URLRequest(test::url(address)); }

URLRequest timeRequest() { return requestOf("https://api.example.test/v2/time"); }

NetworkError failedWith(Error underlying) {
    return NetworkError::requestFailed(timeRequest(), test::httpResponse(500), std::move(underlying));
}

std::string text(const Dictionary& userInfo, const std::string& key) {
    const auto entry = userInfo.find(key);
    if (entry == userInfo.end()) return "(absent)";
    const std::string* const value = entry->second.text();
    return value != nullptr ? *value : "(no text)";
}

TEST(NetworkError, HttpErrorHasTheStatusAsItsCode) {
    const NetworkError error =
        NetworkError::httpError(timeRequest(), test::httpResponse(404), Data("{\"a\":1}"));
    EXPECT_EQ(error.kind(), NetworkError::Kind::httpError);
    EXPECT_EQ(error.errorCode(), 404);
    EXPECT_EQ(error.localizedDescription(), "Got response 404");
    EXPECT_EQ(error.errorMessage(), "HttpCode: 404");
    EXPECT_EQ(error.data(), Data("{\"a\":1}"));
    EXPECT_EQ(error.request(), timeRequest());
    ASSERT_NE(error.response(), nullptr);
    EXPECT_EQ(error.response()->statusCode(), 404);
}

TEST(NetworkError, HttpErrorWithoutAResponseHasTheCodeZero) {
    const NetworkError error = NetworkError::httpError(timeRequest(), nullptr, std::nullopt);
    EXPECT_EQ(error.errorCode(), 0);
    EXPECT_EQ(error.response(), nullptr);
    EXPECT_EQ(error.localizedDescription(), "Got response 0");
    EXPECT_EQ(error.errorMessage(), "HttpCode: 0");
    EXPECT_EQ(text(error.errorUserInfo(), "status_code"), "0");
    EXPECT_FALSE(LoaderError::serverError(error).is404Error());
}

TEST(NetworkError, ANullResponseDoesNotChangeTheCodeOfTheOtherCases) {
    const NetworkError noData = NetworkError::dataNotFoundInResponse(timeRequest(), nullptr, "why");
    EXPECT_EQ(noData.errorCode(), 4);
    EXPECT_EQ(noData.response(), nullptr);
    EXPECT_EQ(NetworkError::notAHTTPResponse(timeRequest(), nullptr, "why").errorCode(), 3);
}

TEST(NetworkError, InternalSDKErrorHasCodeOneAndNoRequest) {
    const NetworkError error = NetworkError::internalSDKError("lost it");
    EXPECT_EQ(error.errorCode(), 1);
    EXPECT_EQ(error.localizedDescription(), "lost it");
    EXPECT_EQ(error.errorMessage(), "Error: 1 : (lost it");
    EXPECT_EQ(error.request(), std::nullopt);
    EXPECT_EQ(error.response(), nullptr);
    EXPECT_EQ(error.requestHost(), std::nullopt);
    EXPECT_EQ(error.requestPath(), std::nullopt);
    EXPECT_EQ(error.requestQuery(), std::nullopt);
}

TEST(NetworkError, NotAHTTPResponseHasCodeThreeAndNoHTTPResponse) {
    const auto response = std::make_shared<const URLResponse>(test::url("https://api.example.test"));
    const NetworkError error = NetworkError::notAHTTPResponse(timeRequest(), response, "why");
    EXPECT_EQ(error.errorCode(), 3);
    EXPECT_EQ(error.localizedDescription(), "why");
    EXPECT_EQ(error.errorMessage(), "Error: 3, /v2/time : (why");
    EXPECT_EQ(error.response(), nullptr);
    EXPECT_EQ(error.heldResponse(), response);
}

TEST(NetworkError, DataNotFoundHasCodeFourAndAFixedDescription) {
    const NetworkError error =
        NetworkError::dataNotFoundInResponse(timeRequest(), test::httpResponse(204), "unused");
    EXPECT_EQ(error.errorCode(), 4);
    EXPECT_EQ(error.localizedDescription(), "Data returned is nil and no error returned");
    EXPECT_EQ(error.message(), "unused");
    EXPECT_EQ(error.response()->statusCode(), 204);
}

TEST(NetworkError, RequestFailedHasTheCodeAndDescriptionOfItsCause) {
    const NetworkError error =
        failedWith(NSError("NSURLErrorDomain", -1001, {{"NSLocalizedDescription", "D"}}));
    EXPECT_EQ(error.errorCode(), -1001);
    EXPECT_EQ(error.localizedDescription(), "D");
    EXPECT_EQ(error.errorMessage(), "Error: -1001, /v2/time : (D");
    EXPECT_EQ(error.response(), nullptr) << "absent even if the error holds one";
    ASSERT_NE(error.heldResponse(), nullptr);
    ASSERT_TRUE(error.underlyingError());
    EXPECT_EQ(error.underlyingError()->domain(), "NSURLErrorDomain");
}

TEST(NetworkError, AURLWithoutAPathHasAnEmptyPath) {
    const NetworkError error =
        NetworkError::notAHTTPResponse(requestOf("https://api.example.test"), nullptr, "why");
    EXPECT_EQ(error.requestPath(), "");
    EXPECT_EQ(error.errorMessage(), "Error: 3,  : (why");
}

TEST(NetworkError, ARequestWithoutAURLHasNoHostPathAndQuery) {
    URLRequest request = timeRequest();
    request.setURL(std::nullopt);
    const NetworkError error = NetworkError::notAHTTPResponse(request, nullptr, "why");
    EXPECT_EQ(error.requestPath(), std::nullopt);
    EXPECT_EQ(error.errorMessage(), "Error: 3 : (why");
    EXPECT_EQ(text(error.errorUserInfo(), "url"), "(absent)");
}

TEST(NetworkError, UserInformationDescribesTheRequest) {
    URLRequest request = requestOf("https://api.example.test/v2/search?q=a%20b");
    request.setHTTPMethod("POST");
    const Dictionary userInfo =
        NetworkError::httpError(request, test::httpResponse(503), std::nullopt).errorUserInfo();
    EXPECT_EQ(userInfo.size(), 8U);
    EXPECT_EQ(text(userInfo, "error_code"), "503");
    EXPECT_EQ(text(userInfo, "domain"), "dev.vantic.VanticRestKit.networkService");
    EXPECT_EQ(text(userInfo, "url"), "https://api.example.test/v2/search?q=a%20b");
    EXPECT_EQ(text(userInfo, "status_code"), "503");
    EXPECT_EQ(text(userInfo, "url_host"), "api.example.test");
    EXPECT_EQ(text(userInfo, "url_path"), "/v2/search");
    EXPECT_EQ(text(userInfo, "url_query"), "q=a%20b");
    EXPECT_EQ(text(userInfo, "http_method"), "POST");
}

TEST(NetworkError, UserInformationOfARequestWithoutAQueryHasNoQueryKey) {
    const Dictionary userInfo =
        NetworkError::httpError(timeRequest(), test::httpResponse(500), std::nullopt).errorUserInfo();
    EXPECT_FALSE(userInfo.contains("url_query"));
    EXPECT_TRUE(userInfo.contains("url_path"));
}

TEST(NetworkError, UserInformationHasNoEmptyStrings) {
    const Dictionary userInfo =
        NetworkError::notAHTTPResponse(requestOf("https://api.example.test?"), nullptr, "why")
            .errorUserInfo();
    EXPECT_FALSE(userInfo.contains("url_path"));
    EXPECT_FALSE(userInfo.contains("url_query"));
}

TEST(NetworkError, UserInformationOfAnInternalErrorHasExactlyThreeKeys) {
    const Dictionary expected{
        {"error_code", "1"}, {"domain", "dev.vantic.VanticRestKit.networkService"}, {"status_code", "1"}};
    EXPECT_EQ(NetworkError::internalSDKError("x").errorUserInfo(), expected);
}

TEST(NetworkError, TheStatusCodeKeyRepeatsTheErrorCodeEvenIfItIsNotAStatus) {
    const Dictionary userInfo = failedWith(NSError("NSURLErrorDomain", -1001)).errorUserInfo();
    EXPECT_EQ(text(userInfo, "error_code"), "-1001");
    EXPECT_EQ(text(userInfo, "status_code"), "-1001");
}

TEST(NetworkError, TheUserInformationOfTheCauseIsAddedUnfilteredUnderOtherKeys) {
    const Dictionary userInfo =
        failedWith(NSError("NSURLErrorDomain", -1001,
                           {{"domain", "theirs"}, {"empty", ""}, {"number", 7}, {"url_query", "theirs"}}))
            .errorUserInfo();
    EXPECT_EQ(text(userInfo, "domain"), "dev.vantic.VanticRestKit.networkService");
    EXPECT_EQ(text(userInfo, "empty"), "");
    EXPECT_EQ(text(userInfo, "url_query"), "theirs") << "the request has no query of its own";
    ASSERT_TRUE(userInfo.contains("number"));
    EXPECT_EQ(userInfo.find("number")->second, AnyValue(7));
}

TEST(NetworkError, TheDefaultDescriptionConsistsOfDomainAndCode) {
    const Error general = NetworkError::httpError(timeRequest(), test::httpResponse(500), std::nullopt);
    EXPECT_EQ(
        general.localizedDescription(),
        "The operation couldn\u2019t be completed. (dev.vantic.VanticRestKit.networkService error 500.)");
    ASSERT_NE(general.as<NetworkError>(), nullptr);
    EXPECT_EQ(general.as<NetworkError>()->localizedDescription(), "Got response 500");
}

TEST(NetworkError, TheDescriptionOfTheCauseIsUsedIfItHasOne) {
    const Error general = failedWith(NSError("NSURLErrorDomain", -1001, {{"NSLocalizedDescription", "D"}}));
    EXPECT_EQ(general.localizedDescription(), "D");
}

TEST(NetworkError, ComparesByCaseOnly) {
    EXPECT_EQ(NetworkError::internalSDKError("a"), NetworkError::internalSDKError("b"));
    EXPECT_NE(NetworkError::internalSDKError("a"),
              NetworkError::notAHTTPResponse(timeRequest(), nullptr, "a"));
}

TEST(ErrorBridge, AnErrorHasADomainACodeAndUserInformation) {
    const Error error = NSError("D", 3, {{"k", "v"}});
    EXPECT_EQ(underlyingNSError(error).domain(), "D");
    EXPECT_EQ(underlyingNSError(error).code(), 3);
    EXPECT_EQ(underlyingErrorUserinfo(error), (Dictionary{{"k", "v"}}));
}

TEST(ErrorBridge, ANetworkErrorConvertsToAnNSErrorWithItsDomainCodeAndUserInformation) {
    const NetworkError error = NetworkError::httpError(timeRequest(), test::httpResponse(404), std::nullopt);
    const NSError bridged = makeNSError({.networkServiceError = error});
    EXPECT_EQ(bridged.domain(), "dev.vantic.VanticRestKit.networkService");
    EXPECT_EQ(bridged.code(), 404);
    EXPECT_EQ(bridged.userInfo(), error.errorUserInfo());
}

}  // namespace
}  // namespace VanticRestKit
