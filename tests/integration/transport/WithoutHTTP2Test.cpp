// A separate program, since it replaces functions of libcurl to simulate a build without HTTP/2.

#include <VanticRestKit/platform/http/URLSession.h>

#include <curl/curl.h>
#include <gtest/gtest.h>
#include <support/Certificates.h>
#include <support/FaultServer.h>
#include <support/Loading.h>

#include <dlfcn.h>
#include <atomic>
#include <cstdarg>
#include <string>

using namespace VanticRestKit;
using namespace VanticRestKit::test;

namespace {

std::atomic<int> refusals = 0;

template <class Function>
Function* ofLibcurl(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

extern "C" curl_version_info_data* curl_version_info(CURLversion age) {
    static curl_version_info_data information =
        *ofLibcurl<curl_version_info_data*(CURLversion)>("curl_version_info")(age);
    information.features &= ~CURL_VERSION_HTTP2;
    return &information;
}

// Declared under another name, because variable arguments must not follow a parameter of an enumeration type.
extern "C" CURLcode setOptionWithoutHTTP2(CURL* easy, unsigned option, ...) __asm__("curl_easy_setopt");
extern "C" CURLcode setOptionWithoutHTTP2(CURL* easy, unsigned option, ...) {
    static const auto setOption = ofLibcurl<CURLcode(CURL*, unsigned, ...)>("curl_easy_setopt");
    va_list values;
    va_start(values, option);
    CURLcode code = CURLE_OK;
    if (option >= CURLOPTTYPE_OFF_T && option < CURLOPTTYPE_BLOB) {
        code = setOption(easy, option, va_arg(values, curl_off_t));
    } else if (option >= CURLOPTTYPE_OBJECTPOINT) {
        code = setOption(easy, option, va_arg(values, void*));
    } else if (const long value = va_arg(values, long);
               option == CURLOPT_HTTP_VERSION && value >= CURL_HTTP_VERSION_2_0) {
        ++refusals;
        code = CURLE_UNSUPPORTED_PROTOCOL;
    } else {
        code = setOption(easy, option, value);
    }
    va_end(values);
    return code;
}

TEST(WithoutHTTP2, ASessionThatPrefersItSpeaksHTTP1OverTLS) {
    const CertificateAuthority root;
    const TemporaryFile roots(root.pem());
    const Identity identity = root.issue();
    FaultServer server(always(answer(200, "secure")), &identity);
    URLSessionConfiguration configuration;
    configuration.caBundlePath = roots.path();
    ASSERT_EQ(HTTPVersionPreference::http2OverTLS, configuration.httpVersionPreference);
    EXPECT_EQ("secure", load(*URLSession::make(configuration), server.url()).body());
    EXPECT_EQ(0, refusals) << "libcurl was asked for an unsupported feature";
}

TEST(WithoutHTTP2, TheReplacedLibcurlRejectsTheOption) {
    CURL* const easy = curl_easy_init();
    EXPECT_EQ(CURLE_UNSUPPORTED_PROTOCOL,
              (curl_easy_setopt)(easy, CURLOPT_HTTP_VERSION, long{CURL_HTTP_VERSION_2TLS}));
    EXPECT_EQ(CURLE_OK, (curl_easy_setopt)(easy, CURLOPT_HTTP_VERSION, long{CURL_HTTP_VERSION_1_1}));
    curl_easy_cleanup(easy);
}
