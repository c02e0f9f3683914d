#include <VanticRestKit/platform/http/curl/detail/CurlErrors.h>
#include <VanticRestKit/platform/http/detail/LimitFaults.h>

#include <sys/socket.h>
#include <unistd.h>
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace VanticRestKit::detail {

namespace {

// The TLS library's code for a certificate that is not yet valid.
constexpr long certificateNotYetValid = 9;

bool isChunkError(std::string_view text) { return text.find("hunked") != std::string_view::npos; }

// The proxy refused to connect to the server.
bool isTunnelError(std::string_view text) { return text.starts_with("CONNECT tunnel failed"); }

bool isLargeHeadersError(std::string_view text) {
    return text.find("Too large response headers") != std::string_view::npos;
}

// The connection was lost during the TLS handshake, which says nothing about the server's TLS.
bool isLostConnection(std::string_view text) {
    constexpr std::array<std::string_view, 5> texts{"SSL_ERROR_SYSCALL", "Recv failure", "Send failure",
                                                    "Connection reset", "unexpected eof"};
    return std::any_of(texts.begin(), texts.end(),
                       [text](std::string_view each) { return text.find(each) != std::string_view::npos; });
}

// Why no socket can be opened now, as an `errno`; 0 if one can be opened.
int probeForSocket() {
    const int probe = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (probe < 0) return errno;
    ::close(probe);
    return 0;
}

// The fault if the process or system has run out of sockets. It is not the host's fault, and retrying at once would
// make it worse.
std::optional<TransportFault> exhaustionFault(int socketError) {
    switch (socketError) {
        case EMFILE:
            return TransportFault{.description = "The process has no free file descriptor for a connection."};
        case ENFILE:
            return TransportFault{.description = "The system has no free file descriptor for a connection."};
        case ENOBUFS:
        case ENOMEM: return TransportFault{.description = "The system has no memory for a connection."};
        default: return std::nullopt;
    }
}

}  // namespace

// Messages about other HTTP/2 errors name the nghttp2 function that failed. The message may be that of an earlier
// sending of the same request.
bool isEndOfHTTP2Connection(CURLcode code, std::string_view text) {
    return code == CURLE_HTTP2 && text.find("nghttp2") == std::string_view::npos;
}

TransportFault faultFor(const CurlFailure& failure) {
    // Our own limits are checked earlier; this exceeded libcurl's limit.
    if (failure.isInsideHead && failure.code == CURLE_OUT_OF_MEMORY) {
        return longHeaderLineFault(failure.limits);
    }
    if (isLargeHeadersError(failure.text)) return largeHeadFault(failure.limits);
    if (failure.code == CURLE_COULDNT_CONNECT || failure.code == CURLE_COULDNT_RESOLVE_HOST) {
        // The C library opens the sockets and files of a lookup, and does not report why that failed.
        const bool isLookup = failure.code == CURLE_COULDNT_RESOLVE_HOST;
        const int reason = isLookup ? probeForSocket() : failure.socketError;
        if (auto fault = exhaustionFault(reason)) return *std::move(fault);
    }
    // If it happens repeatedly, the server violates the protocol.
    if (isEndOfHTTP2Connection(failure.code, failure.text) && !failure.wentUnansweredBefore) {
        return {URLErrorCode::networkConnectionLost};
    }
    return {urlErrorCodeFor(failure.code, failure.text, failure.verifyResult)};
}

URLErrorCode urlErrorCodeFor(CURLcode code, std::string_view text, long verifyResult) {
    switch (code) {
        case CURLE_URL_MALFORMAT: return URLErrorCode::badURL;
        case CURLE_COULDNT_RESOLVE_PROXY:
        case CURLE_COULDNT_RESOLVE_HOST: return URLErrorCode::cannotFindHost;
        case CURLE_PROXY:
        case CURLE_COULDNT_CONNECT: return URLErrorCode::cannotConnectToHost;
        case CURLE_OPERATION_TIMEDOUT: return URLErrorCode::timedOut;
        // The scheme was checked before, so this means a response without a status line.
        case CURLE_UNSUPPORTED_PROTOCOL:
        case CURLE_WEIRD_SERVER_REPLY: return URLErrorCode::cannotParseResponse;
        case CURLE_HTTP2: return URLErrorCode::badServerResponse;
        case CURLE_BAD_CONTENT_ENCODING: return URLErrorCode::cannotDecodeContentData;
        // libcurl uses the same code for a malformed chunk and a lost connection; only the message differs.
        case CURLE_RECV_ERROR:
            if (isTunnelError(text)) return URLErrorCode::cannotConnectToHost;
            return isChunkError(text) ? URLErrorCode::badServerResponse : URLErrorCode::networkConnectionLost;
        case CURLE_GOT_NOTHING:
        case CURLE_HTTP2_STREAM:
        case CURLE_PARTIAL_FILE:
        case CURLE_SEND_ERROR:
        case CURLE_SEND_FAIL_REWIND: return URLErrorCode::networkConnectionLost;
        case CURLE_SSL_CONNECT_ERROR:
            return isLostConnection(text) ? URLErrorCode::networkConnectionLost
                                          : URLErrorCode::secureConnectionFailed;
        case CURLE_PEER_FAILED_VERIFICATION:
            return verifyResult == certificateNotYetValid ? URLErrorCode::serverCertificateNotYetValid
                                                          : URLErrorCode::serverCertificateUntrusted;
        case CURLE_SSL_CACERT_BADFILE:
        case CURLE_SSL_CERTPROBLEM:
        case CURLE_SSL_CIPHER:
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
