#pragma once

#include <openssl/evp.h>
#include <openssl/x509.h>

#include <memory>
#include <string>

namespace VanticRestKit::sample {

struct Release {
    void operator()(X509* certificate) const { X509_free(certificate); }
    void operator()(EVP_PKEY* key) const { EVP_PKEY_free(key); }
};

/// A certificate for "localhost" and 127.0.0.1, issued by an authority that is created with it and that no client
/// trusts by default.
struct Certificate {
    std::unique_ptr<X509, Release> certificate;
    std::unique_ptr<EVP_PKEY, Release> key;
    std::string authority;  // PEM; a client must trust it
};

/// Creates a certificate that is valid from an hour ago for a week. Ends the program if OpenSSL fails.
Certificate makeCertificate();

}  // namespace VanticRestKit::sample
