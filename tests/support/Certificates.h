#pragma once

/// \file
/// Valid and invalid certificates, created at run time.

#include <openssl/evp.h>
#include <openssl/x509.h>

#include <chrono>
#include <memory>
#include <string>

namespace VanticRestKit::test {

struct CertificateDeleter {
    void operator()(X509* certificate) const { X509_free(certificate); }
    void operator()(EVP_PKEY* key) const { EVP_PKEY_free(key); }
};

/// A certificate and its private key.
struct Identity {
    std::unique_ptr<X509, CertificateDeleter> certificate;
    std::unique_ptr<EVP_PKEY, CertificateDeleter> key;

    std::string certificatePem() const;
    std::string keyPem() const;
    /// The private key, encrypted.
    std::string keyPem(const std::string& passphrase) const;
};

/// The content of a server's certificate.
struct CertificateOptions {
    /// The host name or address that it is for: "DNS:localhost" or "IP:127.0.0.1". If empty, the certificate has no
    /// subject alternative names.
    std::string subject = "IP:127.0.0.1";
    /// The begin and the end of its validity, relative to now.
    std::chrono::hours from{-1};
    std::chrono::hours until{24};
    /// The common name of its subject.
    std::string commonName = "Test server";
};

/// A root that signs certificates.
class CertificateAuthority {
public:
    explicit CertificateAuthority(const std::string& name = "Test root");

    /// A certificate signed by this root.
    Identity issue(const CertificateOptions& wishes = {}) const;

    std::string pem() const { return root_.certificatePem(); }

private:
    Identity root_;
};

/// A self-signed certificate.
Identity selfSigned(const CertificateOptions& wishes = {});

/// A file in the temporary folder that is removed with this object.
class TemporaryFile {
public:
    explicit TemporaryFile(const std::string& content = {});
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::string& path() const noexcept { return path_; }

private:
    std::string path_;
};

}  // namespace VanticRestKit::test
