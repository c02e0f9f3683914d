#include <VanticRestKit/platform/http/detail/URLErrors.h>

#include <gtest/gtest.h>

using namespace VanticRestKit;
using namespace VanticRestKit::detail;

TEST(URLErrors, CarryDomainCodeDescriptionAndURL) {
    const Error error = makeURLError({URLErrorCode::timedOut}, URL::make("http://host/a?b"));
    EXPECT_EQ(error.domain(), "NSURLErrorDomain");
    EXPECT_EQ(error.code(), -1001);
    EXPECT_EQ(error.localizedDescription(), "The request timed out.");
    const Dictionary info = error.userInfo();
    EXPECT_EQ(info.size(), 2U);
    EXPECT_EQ(*info.find(NSURLErrorFailingURLStringErrorKey)->second.text(), "http://host/a?b");
    EXPECT_NE(error.as<NSError>(), nullptr);
}

TEST(URLErrors, CarryTheirCauseAndTheirReason) {
    const Error cause = NSError("libcurl", 7);
    const Error error = makeURLError({URLErrorCode::cannotConnectToHost, "because"}, std::nullopt, cause);
    const Dictionary info = error.userInfo();
    EXPECT_EQ(info.count(NSURLErrorFailingURLStringErrorKey), 0U);
    EXPECT_EQ(info.find(NSUnderlyingErrorKey)->second.error()->code(), 7);
    EXPECT_EQ(*info.find(NSDebugDescriptionKey)->second.text(), "because");
}

TEST(URLErrors, EveryCodeHasADescription) {
    for (const auto code :
         {URLErrorCode::unknown, URLErrorCode::cancelled, URLErrorCode::badURL, URLErrorCode::timedOut,
          URLErrorCode::unsupportedURL, URLErrorCode::cannotFindHost, URLErrorCode::cannotConnectToHost,
          URLErrorCode::networkConnectionLost, URLErrorCode::httpTooManyRedirects,
          URLErrorCode::badServerResponse, URLErrorCode::cannotDecodeRawData,
          URLErrorCode::cannotDecodeContentData, URLErrorCode::cannotParseResponse,
          URLErrorCode::secureConnectionFailed, URLErrorCode::serverCertificateUntrusted,
          URLErrorCode::serverCertificateNotYetValid}) {
        EXPECT_FALSE(urlErrorDescription(code).empty()) << static_cast<int>(code);
    }
}
