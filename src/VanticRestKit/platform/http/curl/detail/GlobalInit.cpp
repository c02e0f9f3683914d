#include <VanticRestKit/platform/http/curl/detail/GlobalInit.h>

#include <curl/curl.h>
#include <openssl/crypto.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace VanticRestKit::detail {

namespace {

// When libcurl is initialised it opens, and so creates, the file that this variable names; no option prevents that. If
// a host's own use of libcurl has opened the file, the setup of the TLS context keeps secrets out of it.
constexpr const char* keyLogVariable = "SSLKEYLOGFILE";

// OpenSSL initialises itself once per process. Without memory for its default context it remembers the failure, which
// libcurl ignores, and the first connection over TLS would crash.
void abortWithoutOpenSSL() {
#if OPENSSL_VERSION_NUMBER >= 0x30000000L
    if (OSSL_LIB_CTX_get0_global_default() != nullptr) return;
    std::fputs("VanticRestKit: cannot allocate memory to initialise OpenSSL\n", stderr);
    std::abort();
#endif
}

bool initialise() {
    const char* const found = std::getenv(keyLogVariable);
    if (found == nullptr || *found == '\0') return curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
    // libcurl treats an empty value as unset. Replacing the value of an existing variable neither moves the environment
    // nor frees a value, so it is safe while other threads read the environment; removing the variable would not be.
    const std::string path = found;
    setenv(keyLogVariable, "", 1);
    const bool isInitialised = curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
    setenv(keyLogVariable, path.c_str(), 1);
    return isInitialised;
}

}  // namespace

void initialiseLibcurl() {
    // If this fails, making the first handle fails.
    [[maybe_unused]] static const bool isInitialised = initialise();
    abortWithoutOpenSSL();
}

bool libcurlHasHTTP2() noexcept {
    static const bool hasHTTP2 = (curl_version_info(CURLVERSION_NOW)->features & CURL_VERSION_HTTP2) != 0;
    return hasHTTP2;
}

}  // namespace VanticRestKit::detail
