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

/// A certificate for "localhost" and 127.0.0.1, of an authority that is made with it and that no client trusts by
/// default.
struct Certificate {
    std::unique_ptr<X509, Release> certificate;
    std::unique_ptr<EVP_PKEY, Release> key;
    std::string authority;  // PEM, what a client has to trust
};

/// Makes a new one, valid from an hour ago for a week. Ends the program if OpenSSL cannot.
Certificate makeCertificate();

}  // namespace VanticRestKit::sample
