#include <VanticRestKit/platform/http/curl/detail/TlsContext.h>

#include <openssl/crypto.h>
#include <openssl/err.h>
#include <openssl/pem.h>
#include <openssl/ssl.h>
#include <openssl/x509v3.h>

#include <fcntl.h>
#include <unistd.h>
#include <memory>
#include <utility>

namespace VanticRestKit::detail {

namespace {

bool namesHost(const X509* certificate) {
    struct Deleter {
        void operator()(GENERAL_NAMES* names) const { GENERAL_NAMES_free(names); }
    };
    const std::unique_ptr<GENERAL_NAMES, Deleter> names(
        static_cast<GENERAL_NAMES*>(X509_get_ext_d2i(certificate, NID_subject_alt_name, nullptr, nullptr)));
    for (int i = 0; names && i < sk_GENERAL_NAME_num(names.get()); ++i) {
        const int type = sk_GENERAL_NAME_value(names.get(), i)->type;
        if (type == GEN_DNS || type == GEN_IPADD) return true;
    }
    return false;
}

// Called for each certificate of the chain, the server's own last. libcurl later compares the host with the alternative
// names; but if there are none, it accepts the common name, which need not be a host.
int onVerify(int isGood, X509_STORE_CTX* chain) {
    if (isGood == 0 || X509_STORE_CTX_get_error_depth(chain) > 0) return isGood;
    if (namesHost(X509_STORE_CTX_get_current_cert(chain))) return 1;
    X509_STORE_CTX_set_error(chain, X509_V_ERR_HOSTNAME_MISMATCH);
    return 0;
}

// The index under which a context stores its key log.
int keyLogSlot() {
    static const int slot = SSL_CTX_get_ex_new_index(0, nullptr, nullptr, nullptr, nullptr);
    return slot;
}

void onSecret(const SSL* connection, const char* line) {
    void* const found = SSL_CTX_get_ex_data(SSL_get_SSL_CTX(connection), keyLogSlot());
    if (found != nullptr) static_cast<const TlsKeyLog*>(found)->add(line);
}

CURLcode onContext(CURL*, void* made, void* user) {
    SSL_CTX* const context = static_cast<SSL_CTX*>(made);
    TlsSettings& settings = *static_cast<TlsSettings*>(user);
    TlsKeyLog& keyLog = settings.keyLog;
    SSL_CTX_set_verify(context, SSL_VERIFY_PEER, &onVerify);
    if (settings.lacksAuthorities) return CURLE_SSL_CACERT_BADFILE;
    for (const auto& authority : settings.authorities) {
        if (X509_STORE_add_cert(SSL_CTX_get_cert_store(context), authority.get()) != 1)
            return CURLE_OUT_OF_MEMORY;
    }
    // Set even without a key log: libcurl would log to the file that an environment variable names.
    SSL_CTX_set_keylog_callback(context, keyLog.isWanted() ? &onSecret : nullptr);
    if (!keyLog.isWanted()) return CURLE_OK;
    const bool isReady = keyLog.open() && SSL_CTX_set_ex_data(context, keyLogSlot(), &keyLog) == 1;
    return isReady ? CURLE_OK : CURLE_SSL_CONNECT_ERROR;
}

TlsSettings::Certificates readCertificates(std::string_view text) {
    struct Deleter {
        void operator()(BIO* bio) const { BIO_free(bio); }
    };
    const std::unique_ptr<BIO, Deleter> source(BIO_new_mem_buf(text.data(), static_cast<int>(text.size())));
    TlsSettings::Certificates read;
    while (X509* const certificate = PEM_read_bio_X509(source.get(), nullptr, nullptr, nullptr)) {
        read.emplace_back(certificate);
    }
    // Reaching the end of the text leaves an error in the queue.
    ERR_clear_error();
    return read;
}

}  // namespace

TlsSettings::TlsSettings(const URLSessionConfiguration& configuration)
    : keyLog(configuration.tlsKeyLogPath),
      authorities(readCertificates(configuration.additionalCACertificates.value_or(""))),
      lacksAuthorities(configuration.additionalCACertificates.has_value() && authorities.empty()) {}

TlsKeyLog::TlsKeyLog(std::optional<std::string> path) : path_(std::move(path)) {}

TlsKeyLog::~TlsKeyLog() {
    if (file_ >= 0) ::close(file_);
}

bool TlsKeyLog::open() {
    constexpr mode_t onlyTheUser = 0600;
    if (file_ < 0 && path_) {
        file_ = ::open(path_->c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, onlyTheUser);
    }
    return file_ >= 0;
}

void TlsKeyLog::add(std::string_view line) const {
    // In one write, so that several sessions can share a file.
    const std::string whole = std::string(line) + '\n';
    [[maybe_unused]] const auto written = ::write(file_, whole.data(), whole.size());
}

void setTlsContext(Options& options, TlsSettings& settings) {
    options.set(CURLOPT_SSL_CTX_FUNCTION, &onContext);
    options.set(CURLOPT_SSL_CTX_DATA, &settings);
}

void releaseTlsOfThread() { OPENSSL_thread_stop(); }

}  // namespace VanticRestKit::detail
