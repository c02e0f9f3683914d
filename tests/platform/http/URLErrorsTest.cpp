#include <VanticRestKit/platform/http/detail/URLErrors.h>

#include <gtest/gtest.h>

#include <map>
#include <string_view>

using namespace VanticRestKit;
using namespace VanticRestKit::detail;

TEST(URLErrors, HaveDomainCodeDescriptionAndURL) {
    const Error error = makeURLError({URLErrorCode::timedOut}, URL::make("http://host/a?b"));
    EXPECT_EQ(error.domain(), "NSURLErrorDomain");
    EXPECT_EQ(error.code(), -1001);
    EXPECT_EQ(error.localizedDescription(), "The request timed out.");
    const Dictionary info = error.userInfo();
    EXPECT_EQ(info.size(), 2U);
    EXPECT_EQ(*info.find(NSURLErrorFailingURLStringErrorKey)->second.text(), "http://host/a?b");
    EXPECT_NE(error.as<NSError>(), nullptr);
}

TEST(URLErrors, HaveTheirCauseAndReason) {
    const Error cause = NSError("libcurl", 7);
    const Error error = makeURLError({URLErrorCode::cannotConnectToHost, "because"}, std::nullopt, cause);
    const Dictionary info = error.userInfo();
    EXPECT_EQ(info.count(NSURLErrorFailingURLStringErrorKey), 0U);
    EXPECT_EQ(info.find(NSUnderlyingErrorKey)->second.error()->code(), 7);
    EXPECT_EQ(*info.find(NSDebugDescriptionKey)->second.text(), "because");
}

TEST(URLErrors, EveryCodeHasThePlatformsDescription) {
    const std::map<URLErrorCode, std::string_view> descriptions = {
        {URLErrorCode::unknown, "unknown error"},
        {URLErrorCode::cancelled, "cancelled"},
        {URLErrorCode::badURL, "bad URL"},
        {URLErrorCode::timedOut, "The request timed out."},
        {URLErrorCode::unsupportedURL, "unsupported URL"},
        {URLErrorCode::cannotFindHost, "A server with the specified hostname could not be found."},
        {URLErrorCode::cannotConnectToHost, "Could not connect to the server."},
        {URLErrorCode::networkConnectionLost, "The network connection was lost."},
        {URLErrorCode::httpTooManyRedirects, "too many HTTP redirects"},
        {URLErrorCode::resourceUnavailable, "resource unavailable"},
        {URLErrorCode::queuedLoadsExceedMaximum, "too many requests are waiting"},
        {URLErrorCode::badServerResponse, "There was a bad response from the server."},
        {URLErrorCode::cannotDecodeRawData, "cannot decode raw data"},
        {URLErrorCode::cannotDecodeContentData, "cannot decode content data"},
        {URLErrorCode::cannotParseResponse, "cannot parse response"},
        {URLErrorCode::dataLengthExceedsMaximum, "resource exceeds maximum size"},
        {URLErrorCode::secureConnectionFailed,
         "An SSL error has occurred and a secure connection to the server cannot be made."},
        {URLErrorCode::serverCertificateUntrusted, "The certificate for this server is invalid."},
        {URLErrorCode::serverCertificateNotYetValid, "The certificate for this server is not yet valid."}};
    for (const auto& [code, description] : descriptions) {
        EXPECT_EQ(urlErrorDescription(code), description) << static_cast<int>(code);
    }
}
