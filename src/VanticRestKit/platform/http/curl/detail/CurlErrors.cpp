#include <VanticRestKit/platform/http/curl/detail/CurlErrors.h>

#include <cstdint>
#include <string>
#include <utility>

namespace VanticRestKit::detail {

namespace {

// The TLS library's number for a certificate whose time has not begun.
constexpr long certificateNotYetValid = 9;

bool tellsOfChunks(std::string_view text) { return text.find("hunked") != std::string_view::npos; }

}  // namespace

URLErrorCode urlErrorCodeFor(CURLcode code, std::string_view text, long verifyResult) {
    switch (code) {
        case CURLE_URL_MALFORMAT: return URLErrorCode::badURL;
        case CURLE_COULDNT_RESOLVE_HOST: return URLErrorCode::cannotFindHost;
        case CURLE_COULDNT_CONNECT: return URLErrorCode::cannotConnectToHost;
        case CURLE_OPERATION_TIMEDOUT: return URLErrorCode::timedOut;
        // The scheme was looked at before, so this is an answer without a status line.
        case CURLE_UNSUPPORTED_PROTOCOL:
        case CURLE_WEIRD_SERVER_REPLY: return URLErrorCode::cannotParseResponse;
        case CURLE_HTTP2: return URLErrorCode::badServerResponse;
        case CURLE_BAD_CONTENT_ENCODING: return URLErrorCode::cannotDecodeContentData;
        // A broken chunk and a broken connection are one to libcurl, but for the text.
        case CURLE_RECV_ERROR:
            return tellsOfChunks(text) ? URLErrorCode::badServerResponse
                                       : URLErrorCode::networkConnectionLost;
        case CURLE_GOT_NOTHING:
        case CURLE_HTTP2_STREAM:
        case CURLE_PARTIAL_FILE:
        case CURLE_SEND_ERROR:
        case CURLE_SEND_FAIL_REWIND: return URLErrorCode::networkConnectionLost;
        case CURLE_PEER_FAILED_VERIFICATION:
            return verifyResult == certificateNotYetValid ? URLErrorCode::serverCertificateNotYetValid
                                                          : URLErrorCode::serverCertificateUntrusted;
        case CURLE_SSL_CACERT_BADFILE:
        case CURLE_SSL_CERTPROBLEM:
        case CURLE_SSL_CIPHER:
        case CURLE_SSL_CONNECT_ERROR:
        case CURLE_SSL_CRL_BADFILE:
        case CURLE_SSL_ENGINE_INITFAILED:
        case CURLE_SSL_ENGINE_NOTFOUND:
        case CURLE_SSL_ENGINE_SETFAILED:
        case CURLE_SSL_INVALIDCERTSTATUS:
        case CURLE_SSL_ISSUER_ERROR:
        case CURLE_SSL_PINNEDPUBKEYNOTMATCH:
        case CURLE_SSL_SHUTDOWN_FAILED:
        case CURLE_USE_SSL_FAILED: return URLErrorCode::secureConnectionFailed;
        default: return URLErrorCode::unknown;
    }
}

Error underlyingError(CURLcode code, std::string_view text, long verifyResult) {
    Dictionary userInfo;
    userInfo.emplace(NSLocalizedDescriptionKey,
                     text.empty() ? std::string_view(curl_easy_strerror(code)) : text);
    if (verifyResult != 0) userInfo.emplace("SSLVerifyResult", std::int64_t{verifyResult});
    return NSError("libcurl", static_cast<std::int64_t>(code), std::move(userInfo));
}

}  // namespace VanticRestKit::detail
