#include <VanticRestKit/platform/http/curl/detail/GlobalInit.h>

#include <curl/curl.h>

#include <cstdlib>
#include <string>

namespace VanticRestKit::detail {

namespace {

// libcurl opens the file that this variable names, and so creates it, when it is initialised; there is no option against
// that. Secrets are kept out of a file that a host's own use of libcurl has opened where the TLS context is set up.
constexpr const char* keyLogVariable = "SSLKEYLOGFILE";

bool initialise() {
    const char* const found = std::getenv(keyLogVariable);
    if (found == nullptr || *found == '\0') return curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
    // An empty value counts as none for libcurl. To replace the value of a variable that is there moves nothing in the
    // environment and frees no value, so threads of the host that read the environment meanwhile are safe. To remove
    // the variable would not be.
    const std::string path = found;
    setenv(keyLogVariable, "", 1);
    const bool isInitialised = curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
    setenv(keyLogVariable, path.c_str(), 1);
    return isInitialised;
}

}  // namespace

void initialiseLibcurl() {
    // A failure shows in the first handle, which cannot be made then.
    [[maybe_unused]] static const bool isInitialised = initialise();
}

bool libcurlHasHTTP2() noexcept {
    static const bool hasHTTP2 = (curl_version_info(CURLVERSION_NOW)->features & CURL_VERSION_HTTP2) != 0;
    return hasHTTP2;
}

}  // namespace VanticRestKit::detail
