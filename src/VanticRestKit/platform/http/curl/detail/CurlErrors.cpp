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

// The TLS library's number for a certificate whose time has not begun.
constexpr long certificateNotYetValid = 9;

bool tellsOfChunks(std::string_view text) { return text.find("hunked") != std::string_view::npos; }

// The proxy refuses to connect to the server.
bool tellsOfTunnel(std::string_view text) { return text.starts_with("CONNECT tunnel failed"); }

bool tellsOfLargeHeaders(std::string_view text) {
    return text.find("Too large response headers") != std::string_view::npos;
}

// The connection broke while TLS was set up; nothing is known against the server.
bool tellsOfLostConnection(std::string_view text) {
    constexpr std::array<std::string_view, 5> texts{"SSL_ERROR_SYSCALL", "Recv failure", "Send failure",
                                                    "Connection reset", "unexpected eof"};
    return std::any_of(texts.begin(), texts.end(),
                       [text](std::string_view each) { return text.find(each) != std::string_view::npos; });
}

// Why no socket can be opened now, as an `errno`; 0 if one can.
int probeForSocket() {
    const int probe = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (probe < 0) return errno;
    ::close(probe);
    return 0;
}

// The fault of a process or a system that has run out of sockets: it says nothing about the host, and to try again at
// once makes it worse.
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

// The other faults name the function that failed. The text may also be that of an earlier sending of the same request.
bool tellsOfEndOfHTTP2(CURLcode code, std::string_view text) {
    return code == CURLE_HTTP2 && text.find("nghttp2") == std::string_view::npos;
}

TransportFault faultFor(const CurlFailure& failure) {
    // What is larger than our own limits is found before; this is larger than those of libcurl.
    if (failure.isInsideHead && failure.code == CURLE_OUT_OF_MEMORY) {
        return longHeaderLineFault(failure.limits);
    }
    if (tellsOfLargeHeaders(failure.text)) return largeHeadFault(failure.limits);
    if (failure.code == CURLE_COULDNT_CONNECT || failure.code == CURLE_COULDNT_RESOLVE_HOST) {
        // A lookup opens its sockets and files in the C library, which does not pass on why it could not.
        const bool isLookup = failure.code == CURLE_COULDNT_RESOLVE_HOST;
        const int reason = isLookup ? probeForSocket() : failure.socketError;
        if (auto fault = exhaustionFault(reason)) return *std::move(fault);
    }
    // One that ends again and again breaks the rules.
    if (tellsOfEndOfHTTP2(failure.code, failure.text) && !failure.wasLeftOutBefore) {
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
        // The scheme was looked at before, so this is an answer without a status line.
        case CURLE_UNSUPPORTED_PROTOCOL:
        case CURLE_WEIRD_SERVER_REPLY: return URLErrorCode::cannotParseResponse;
        case CURLE_HTTP2: return URLErrorCode::badServerResponse;
        case CURLE_BAD_CONTENT_ENCODING: return URLErrorCode::cannotDecodeContentData;
        // A broken chunk and a broken connection are one to libcurl, but for the text.
        case CURLE_RECV_ERROR:
            if (tellsOfTunnel(text)) return URLErrorCode::cannotConnectToHost;
            return tellsOfChunks(text) ? URLErrorCode::badServerResponse
                                       : URLErrorCode::networkConnectionLost;
        case CURLE_GOT_NOTHING:
        case CURLE_HTTP2_STREAM:
        case CURLE_PARTIAL_FILE:
        case CURLE_SEND_ERROR:
        case CURLE_SEND_FAIL_REWIND: return URLErrorCode::networkConnectionLost;
        case CURLE_SSL_CONNECT_ERROR:
            return tellsOfLostConnection(text) ? URLErrorCode::networkConnectionLost
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
