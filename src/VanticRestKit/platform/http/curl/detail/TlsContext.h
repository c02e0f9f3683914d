#pragma once

/// \file
/// TLS settings for which libcurl has no option, and `TlsKeyLog`.

#include <VanticRestKit/platform/http/curl/detail/Options.h>
#include <VanticRestKit/platform/http/URLSessionConfiguration.h>

#include <openssl/x509.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace VanticRestKit::detail {

/// The file to which the secrets of a session's TLS connections are logged. For one thread.
class TlsKeyLog {
public:
    explicit TlsKeyLog(std::optional<std::string> path);
    ~TlsKeyLog();
    TlsKeyLog(const TlsKeyLog&) = delete;
    TlsKeyLog& operator=(const TlsKeyLog&) = delete;

    /// Whether secrets are to be logged.
    bool isWanted() const noexcept { return path_.has_value(); }
    /// Opens the file; a new one is readable only by the user. Returns whether it is open.
    bool open();
    /// Appends a line.
    void add(std::string_view line) const;

private:
    const std::optional<std::string> path_;
    int file_ = -1;
};

/// The settings of a session's TLS contexts. For one thread.
struct TlsSettings {
    struct CertificateDeleter {
        void operator()(X509* certificate) const { X509_free(certificate); }
    };
    using Certificates = std::vector<std::unique_ptr<X509, CertificateDeleter>>;

    explicit TlsSettings(const URLSessionConfiguration& configuration);

    TlsKeyLog keyLog;
    /// Trusted roots in addition to those that libcurl reads.
    Certificates authorities;
    /// Whether roots were configured but none could be read.
    bool lacksAuthorities;
};

/// Makes each TLS context of libcurl reject certificates without a host among their subject alternative names, trust
/// the authorities of `settings`, and log its secrets only to the key log of `settings`. `settings` must outlive the
/// connections.
void setTlsContext(Options& options, TlsSettings& settings);

/// Frees the TLS library's data of the calling thread, which is about to leave the `ExitGate`. Otherwise the library
/// would do so when the thread has ended, possibly while the library is being torn down.
void releaseTlsOfThread();

}  // namespace VanticRestKit::detail
