#pragma once

/// \file
/// What a session asks of TLS that libcurl has no option for, and `TlsKeyLog`.

#include <VanticRestKit/platform/http/curl/detail/Options.h>
#include <VanticRestKit/platform/http/URLSessionConfiguration.h>

#include <openssl/x509.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace VanticRestKit::detail {

/// The file in which the secrets of a session's TLS connections are logged. For one thread.
class TlsKeyLog {
public:
    explicit TlsKeyLog(std::optional<std::string> path);
    ~TlsKeyLog();
    TlsKeyLog(const TlsKeyLog&) = delete;
    TlsKeyLog& operator=(const TlsKeyLog&) = delete;

    /// Whether secrets are to be logged.
    bool isWanted() const noexcept { return path_.has_value(); }
    /// Opens the file, which only the user may read if it is created here. Returns whether it is open.
    bool open();
    /// Appends a line.
    void add(std::string_view line) const;

private:
    const std::optional<std::string> path_;
    int file_ = -1;
};

/// What the TLS contexts of a session are given. For one thread.
struct TlsSettings {
    struct CertificateDeleter {
        void operator()(X509* certificate) const { X509_free(certificate); }
    };
    using Certificates = std::vector<std::unique_ptr<X509, CertificateDeleter>>;

    explicit TlsSettings(const URLSessionConfiguration& configuration);

    TlsKeyLog keyLog;
    /// The roots to be trusted beside those that libcurl reads.
    Certificates authorities;
    /// Whether some were asked for and none could be read.
    bool lacksAuthorities;
};

/// Has each TLS context that libcurl makes refuse certificates without a name of a host among their subject alternative
/// names, trust the authorities of `settings`, and log its secrets to its key log and nowhere else. `settings` must
/// outlive the connections.
void setTlsContext(Options& options, TlsSettings& settings);

/// Frees what the TLS library keeps for the calling thread, which is about to leave the `ExitGate`. The library would
/// do so by itself when the thread has ended, which may be while the process takes the library down.
void releaseTlsOfThread();

}  // namespace VanticRestKit::detail
