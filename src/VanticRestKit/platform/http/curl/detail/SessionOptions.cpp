#include <VanticRestKit/platform/http/curl/detail/SessionOptions.h>

#include <algorithm>
#include <chrono>
#include <limits>
#include <utility>

namespace VanticRestKit::detail {

namespace {

long sslVersion(TLSProtocolVersion version) {
    switch (version) {
        case TLSProtocolVersion::TLSv12: return CURL_SSLVERSION_TLSv1_2;
        case TLSProtocolVersion::TLSv13: return CURL_SSLVERSION_TLSv1_3;
    }
    return CURL_SSLVERSION_TLSv1_2;
}

void setBlob(Options& options, CURLoption option, const std::string& text) {
    // libcurl copies it.
    curl_blob blob{};
    blob.data = const_cast<char*>(text.data());
    blob.len = text.size();
    blob.flags = CURL_BLOB_COPY;
    options.set(option, &blob);
}

void setClientCertificate(Options& options, const URLSessionClientCertificate& certificate) {
    options.set(CURLOPT_SSLCERTTYPE, "PEM");
    options.set(CURLOPT_SSLKEYTYPE, "PEM");
    setBlob(options, CURLOPT_SSLCERT_BLOB, certificate.certificate);
    setBlob(options, CURLOPT_SSLKEY_BLOB, certificate.privateKey);
    // Without one, libcurl would read a null pointer if the key is encrypted.
    options.set(CURLOPT_KEYPASSWD, certificate.passphrase.value_or("").c_str());
}

}  // namespace

void setSessionOptions(Options& options, const URLSessionConfiguration& configuration) {
    options.set(CURLOPT_SSL_VERIFYPEER, 1L);
    options.set(CURLOPT_SSL_VERIFYHOST, 2L);
    options.set(CURLOPT_SSLVERSION, sslVersion(configuration.tlsMinimumSupportedProtocolVersion));
    options.set(CURLOPT_PROXY_SSLVERSION, sslVersion(configuration.tlsMinimumSupportedProtocolVersion));
    if (configuration.clientCertificate) setClientCertificate(options, *configuration.clientCertificate);
    const auto lifetime = configuration.idleConnectionLifetime.count();
    constexpr std::int64_t maxLifetime = std::numeric_limits<std::int32_t>::max();
    options.set(CURLOPT_MAXAGE_CONN, static_cast<long>(std::clamp<std::int64_t>(lifetime, 1, maxLifetime)));
    if (!configuration.caBundlePath) return;
    for (const CURLoption option : {CURLOPT_CAINFO, CURLOPT_PROXY_CAINFO}) {
        options.set(option, configuration.caBundlePath->c_str());
    }
    // Otherwise the system's certificate folder would be used in addition to the file.
    for (const CURLoption option : {CURLOPT_CAPATH, CURLOPT_PROXY_CAPATH}) {
        options.set(option, static_cast<const char*>(nullptr));
    }
}

void setProxy(Options& options, const URLSessionProxy& proxy, bool goesThrough) {
    options.set(CURLOPT_PROXY, goesThrough ? proxy.url.c_str() : "");
    // The proxy's response to CONNECT is not the server's response.
    options.set(CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L);
    if (!goesThrough || !proxy.user) return;
    options.set(CURLOPT_PROXYUSERNAME, proxy.user->c_str());
    options.set(CURLOPT_PROXYPASSWORD, proxy.password.value_or("").c_str());
}

std::vector<std::string> resolvedAddresses(const URLSessionConfiguration& configuration) {
    std::vector<std::string> lines;
    for (const URLSessionResolverOverride& each : configuration.resolverOverrides) {
        std::string line = each.host + ':' + std::to_string(each.port) + ':';
        for (const std::string& address : each.addresses) {
            const bool isIPv6 = address.find(':') != std::string::npos;
            if (&address != &each.addresses.front()) line += ',';
            line += isIPv6 ? '[' + address + ']' : address;
        }
        lines.push_back(std::move(line));
    }
    return lines;
}

}  // namespace VanticRestKit::detail
