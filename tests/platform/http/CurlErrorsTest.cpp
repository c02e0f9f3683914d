#include <VanticRestKit/platform/http/curl/detail/CurlErrors.h>

#include <gtest/gtest.h>

#include <cerrno>

using namespace VanticRestKit;
using namespace VanticRestKit::detail;

TEST(CurlErrors, MapToThePlatformsCodes) {
    const auto code = [](CURLcode given) { return static_cast<int>(urlErrorCodeFor(given, "", 0)); };
    EXPECT_EQ(code(CURLE_URL_MALFORMAT), -1000);
    EXPECT_EQ(code(CURLE_OPERATION_TIMEDOUT), -1001);
    EXPECT_EQ(code(CURLE_COULDNT_RESOLVE_HOST), -1003);
    EXPECT_EQ(code(CURLE_COULDNT_RESOLVE_PROXY), -1003);
    EXPECT_EQ(code(CURLE_COULDNT_CONNECT), -1004);
    EXPECT_EQ(code(CURLE_PROXY), -1004);
    EXPECT_EQ(code(CURLE_GOT_NOTHING), -1005);
    EXPECT_EQ(code(CURLE_RECV_ERROR), -1005);
    EXPECT_EQ(code(CURLE_SEND_ERROR), -1005);
    EXPECT_EQ(code(CURLE_SEND_FAIL_REWIND), -1005);
    EXPECT_EQ(code(CURLE_PARTIAL_FILE), -1005);
    EXPECT_EQ(code(CURLE_HTTP2_STREAM), -1005);
    EXPECT_EQ(code(CURLE_HTTP2), -1011);
    EXPECT_EQ(code(CURLE_BAD_CONTENT_ENCODING), -1016);
    EXPECT_EQ(code(CURLE_WEIRD_SERVER_REPLY), -1017);
    EXPECT_EQ(code(CURLE_SSL_CONNECT_ERROR), -1200);
    for (const CURLcode each :
         {CURLE_SSL_CACERT_BADFILE, CURLE_SSL_CERTPROBLEM, CURLE_SSL_CIPHER, CURLE_SSL_CRL_BADFILE,
          CURLE_SSL_ENGINE_INITFAILED, CURLE_SSL_ENGINE_NOTFOUND, CURLE_SSL_ENGINE_SETFAILED,
          CURLE_SSL_INVALIDCERTSTATUS, CURLE_SSL_ISSUER_ERROR, CURLE_SSL_PINNEDPUBKEYNOTMATCH,
          CURLE_SSL_SHUTDOWN_FAILED, CURLE_USE_SSL_FAILED}) {
        EXPECT_EQ(code(each), -1200) << each;
    }
    EXPECT_EQ(code(CURLE_PEER_FAILED_VERIFICATION), -1202);
    EXPECT_EQ(code(CURLE_OUT_OF_MEMORY), -1);
}

TEST(CurlErrors, AnInterruptedHandshakeIsALostConnection) {
    const auto code = [](const char* text) { return urlErrorCodeFor(CURLE_SSL_CONNECT_ERROR, text, 0); };
    for (const char* const text :
         {"OpenSSL SSL_connect: SSL_ERROR_SYSCALL in connection to 127.0.0.1:58023 ",
          "Recv failure: Connection reset by peer", "Send failure: Broken pipe",
          "OpenSSL SSL_connect: Connection reset by peer in connection to 127.0.0.1:443",
          "error:0A000126:SSL routines::unexpected eof while reading"}) {
        EXPECT_EQ(code(text), URLErrorCode::networkConnectionLost) << text;
    }
    for (const char* const text : {"error:0A00010B:SSL routines::wrong version number",
                                   "error:0A000410:SSL routines::sslv3 alert handshake failure"}) {
        EXPECT_EQ(code(text), URLErrorCode::secureConnectionFailed) << text;
    }
}

TEST(CurlErrors, AClosedHTTP2ConnectionIsLostTheFirstTimeAndABadResponseAfterARetry) {
    // The text is left over from an earlier attempt.
    for (const char* const text : {"", "OpenSSL SSL_read: Connection reset by peer, errno 104"}) {
        EXPECT_EQ(faultFor({.code = CURLE_HTTP2, .text = text}).code, URLErrorCode::networkConnectionLost);
        EXPECT_EQ(faultFor({.code = CURLE_HTTP2, .text = text, .wentUnansweredBefore = true}).code,
                  URLErrorCode::badServerResponse);
    }
    EXPECT_EQ(faultFor({.code = CURLE_HTTP2, .text = "nghttp2 recv error -902"}).code,
              URLErrorCode::badServerResponse);
}

TEST(CurlErrors, ACertificateThatIsNotYetValidHasItsOwnCode) {
    EXPECT_EQ(urlErrorCodeFor(CURLE_PEER_FAILED_VERIFICATION, "", 9),
              URLErrorCode::serverCertificateNotYetValid);
    EXPECT_EQ(urlErrorCodeFor(CURLE_PEER_FAILED_VERIFICATION, "", 10),
              URLErrorCode::serverCertificateUntrusted);
}

TEST(CurlErrors, ReportHeadersThatExceedALimitOfLibcurl) {
    const auto code = [](const CurlFailure& failure) { return faultFor(failure).code; };
    EXPECT_EQ(code({.code = CURLE_RECV_ERROR, .text = "Too large response headers: 2 > 1"}),
              URLErrorCode::dataLengthExceedsMaximum);
    EXPECT_EQ(code({.code = CURLE_OUT_OF_MEMORY, .isInsideHead = true}),
              URLErrorCode::dataLengthExceedsMaximum);
    EXPECT_EQ(code({.code = CURLE_OUT_OF_MEMORY}), URLErrorCode::unknown);
    EXPECT_EQ(code({.code = CURLE_RECV_ERROR, .isInsideHead = true}), URLErrorCode::networkConnectionLost);
}

TEST(CurlErrors, ReportTheLackOfASocketNotTheHost) {
    for (const int error : {EMFILE, ENFILE, ENOBUFS, ENOMEM}) {
        const TransportFault fault = faultFor({.code = CURLE_COULDNT_CONNECT, .socketError = error});
        EXPECT_EQ(fault.code, URLErrorCode::unknown) << error;
        EXPECT_NE(fault.description, "") << error;
    }
    EXPECT_EQ(faultFor({.code = CURLE_COULDNT_CONNECT, .socketError = EAFNOSUPPORT}).code,
              URLErrorCode::cannotConnectToHost);
    EXPECT_EQ(faultFor({.code = CURLE_COULDNT_RESOLVE_HOST}).code, URLErrorCode::cannotFindHost);
}

TEST(CurlErrors, BecomeUnderlyingErrorsWithCodeAndDescription) {
    const Error error = underlyingError(CURLE_PEER_FAILED_VERIFICATION, "certificate has expired", 10);
    EXPECT_EQ(error.domain(), "libcurl");
    EXPECT_EQ(error.code(), 60);
    EXPECT_EQ(error.localizedDescription(), "certificate has expired");
    EXPECT_EQ(*error.userInfo().find("SSLVerifyResult")->second.integer(), 10);
    EXPECT_EQ(underlyingError(CURLE_COULDNT_CONNECT, "", 0).localizedDescription(),
              curl_easy_strerror(CURLE_COULDNT_CONNECT));
}
