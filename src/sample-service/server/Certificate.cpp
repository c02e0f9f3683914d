#include "server/Certificate.h"

#include <openssl/bio.h>
#include <openssl/ec.h>
#include <openssl/pem.h>
#include <openssl/rand.h>
#include <openssl/x509v3.h>

#include <cstdio>
#include <cstdlib>

namespace VanticRestKit::sample {

namespace {

using OwnedKey = std::unique_ptr<EVP_PKEY, Release>;
using OwnedCertificate = std::unique_ptr<X509, Release>;

void require(bool done, const char* what) {
    if (done) return;
    std::fprintf(stderr, "sample-service: no certificate: %s failed\n", what);
    std::exit(1);
}

void addExtension(X509* certificate, X509* issuer, int kind, const char* value) {
    X509V3_CTX context;
    X509V3_set_ctx_nodb(&context);
    X509V3_set_ctx(&context, issuer, certificate, nullptr, nullptr, 0);
    X509_EXTENSION* extension = X509V3_EXT_conf_nid(nullptr, &context, kind, value);
    require(extension != nullptr && X509_add_ext(certificate, extension, -1) == 1, value);
    X509_EXTENSION_free(extension);
}

OwnedCertificate unsignedCertificate(const char* name, EVP_PKEY* key) {
    OwnedCertificate certificate(X509_new());
    std::uint64_t serial = 0;
    require(RAND_bytes(reinterpret_cast<unsigned char*>(&serial), sizeof serial) == 1, "a serial number");
    X509_set_version(certificate.get(), 2);
    ASN1_INTEGER_set_uint64(X509_get_serialNumber(certificate.get()), serial >> 1);
    X509_gmtime_adj(X509_getm_notBefore(certificate.get()), -3600);
    X509_gmtime_adj(X509_getm_notAfter(certificate.get()), 7 * 24 * 3600);
    X509_set_pubkey(certificate.get(), key);
    X509_NAME_add_entry_by_txt(X509_get_subject_name(certificate.get()), "CN", MBSTRING_UTF8,
                               reinterpret_cast<const unsigned char*>(name), -1, -1, 0);
    return certificate;
}

std::string pem(X509* certificate) {
    std::unique_ptr<BIO, int (*)(BIO*)> memory(BIO_new(BIO_s_mem()), BIO_free);
    require(PEM_write_bio_X509(memory.get(), certificate) == 1, "writing the authority");
    char* text = nullptr;
    const long length = BIO_get_mem_data(memory.get(), &text);
    return std::string(text, static_cast<std::size_t>(length));
}

}  // namespace

Certificate makeCertificate() {
    const OwnedKey authorityKey(EVP_EC_gen("P-256"));
    OwnedKey key(EVP_EC_gen("P-256"));
    require(authorityKey && key, "a key");

    const auto authority = unsignedCertificate("Sample service authority", authorityKey.get());
    X509_set_issuer_name(authority.get(), X509_get_subject_name(authority.get()));
    addExtension(authority.get(), authority.get(), NID_basic_constraints, "critical,CA:TRUE");
    addExtension(authority.get(), authority.get(), NID_key_usage, "critical,keyCertSign,cRLSign");
    addExtension(authority.get(), authority.get(), NID_subject_key_identifier, "hash");
    require(X509_sign(authority.get(), authorityKey.get(), EVP_sha256()) > 0, "signing the authority");

    auto certificate = unsignedCertificate("localhost", key.get());
    X509_set_issuer_name(certificate.get(), X509_get_subject_name(authority.get()));
    addExtension(certificate.get(), authority.get(), NID_basic_constraints, "critical,CA:FALSE");
    addExtension(certificate.get(), authority.get(), NID_ext_key_usage, "serverAuth");
    addExtension(certificate.get(), authority.get(), NID_subject_alt_name, "DNS:localhost,IP:127.0.0.1");
    addExtension(certificate.get(), authority.get(), NID_authority_key_identifier, "keyid");
    require(X509_sign(certificate.get(), authorityKey.get(), EVP_sha256()) > 0, "signing the certificate");

    return {std::move(certificate), std::move(key), pem(authority.get())};
}

}  // namespace VanticRestKit::sample
