#include "Certificates.h"

#include <gtest/gtest.h>
#include <openssl/bio.h>
#include <openssl/ec.h>
#include <openssl/pem.h>
#include <openssl/rand.h>
#include <openssl/x509v3.h>

#include <unistd.h>
#include <cstdlib>
#include <string_view>

namespace VanticRestKit::test {

namespace {

std::string textOf(BIO* memory) {
    char* bytes = nullptr;
    const long size = BIO_get_mem_data(memory, &bytes);
    std::string text(bytes, static_cast<std::size_t>(size));
    BIO_free(memory);
    return text;
}

void addExtension(X509* certificate, int kind, const std::string& value) {
    X509V3_CTX context;
    X509V3_set_ctx_nodb(&context);
    X509V3_set_ctx(&context, certificate, certificate, nullptr, nullptr, 0);
    X509_EXTENSION* const extension = X509V3_EXT_conf_nid(nullptr, &context, kind, value.c_str());
    ASSERT_NE(extension, nullptr) << value;
    X509_add_ext(certificate, extension, -1);
    X509_EXTENSION_free(extension);
}

/// A certificate without extensions and without a signature.
Identity draft(const std::string& name, const CertificateOptions& wishes) {
    Identity identity;
    identity.key.reset(EVP_EC_gen("P-256"));
    identity.certificate.reset(X509_new());
    X509* const certificate = identity.certificate.get();
    X509_set_version(certificate, X509_VERSION_3);
    std::uint32_t serial = 0;
    RAND_bytes(reinterpret_cast<unsigned char*>(&serial), sizeof(serial));
    ASN1_INTEGER_set(X509_get_serialNumber(certificate), static_cast<long>(serial) + 1);
    using Seconds = std::chrono::seconds;
    X509_gmtime_adj(X509_getm_notBefore(certificate), static_cast<long>(Seconds(wishes.from).count()));
    X509_gmtime_adj(X509_getm_notAfter(certificate), static_cast<long>(Seconds(wishes.until).count()));
    X509_set_pubkey(certificate, identity.key.get());
    X509_NAME_add_entry_by_txt(X509_get_subject_name(certificate), "CN", MBSTRING_UTF8,
                               reinterpret_cast<const unsigned char*>(name.data()),
                               static_cast<int>(name.size()), -1, 0);
    return identity;
}

void sign(const Identity& identity, const Identity& by) {
    X509_set_issuer_name(identity.certificate.get(), X509_get_subject_name(by.certificate.get()));
    ASSERT_GT(X509_sign(identity.certificate.get(), by.key.get(), EVP_sha256()), 0);
}

}  // namespace

std::string Identity::certificatePem() const {
    BIO* const memory = BIO_new(BIO_s_mem());
    PEM_write_bio_X509(memory, certificate.get());
    return textOf(memory);
}

std::string Identity::keyPem() const {
    BIO* const memory = BIO_new(BIO_s_mem());
    PEM_write_bio_PrivateKey(memory, key.get(), nullptr, nullptr, 0, nullptr, nullptr);
    return textOf(memory);
}

std::string Identity::keyPem(const std::string& passphrase) const {
    BIO* const memory = BIO_new(BIO_s_mem());
    PEM_write_bio_PrivateKey(memory, key.get(), EVP_aes_128_cbc(),
                             reinterpret_cast<const unsigned char*>(passphrase.data()),
                             static_cast<int>(passphrase.size()), nullptr, nullptr);
    return textOf(memory);
}

CertificateAuthority::CertificateAuthority(const std::string& name) : root_(draft(name, {})) {
    addExtension(root_.certificate.get(), NID_basic_constraints, "critical,CA:TRUE");
    addExtension(root_.certificate.get(), NID_key_usage, "critical,keyCertSign,cRLSign");
    sign(root_, root_);
}

Identity CertificateAuthority::issue(const CertificateOptions& wishes) const {
    Identity identity = draft(wishes.commonName, wishes);
    if (!wishes.subject.empty()) {
        addExtension(identity.certificate.get(), NID_subject_alt_name, wishes.subject);
    }
    sign(identity, root_);
    return identity;
}

Identity selfSigned(const CertificateOptions& wishes) {
    Identity identity = draft(wishes.commonName, wishes);
    addExtension(identity.certificate.get(), NID_subject_alt_name, wishes.subject);
    sign(identity, identity);
    return identity;
}

TemporaryFile::TemporaryFile(const std::string& content) {
    const char* const folder = std::getenv("TMPDIR");
    path_ = std::string(folder != nullptr ? folder : "/tmp") + "/vrk-test-XXXXXX";
    const int file = mkstemp(path_.data());
    EXPECT_GE(file, 0) << path_;
    EXPECT_EQ(write(file, content.data(), content.size()), static_cast<ssize_t>(content.size()));
    close(file);
}

TemporaryFile::~TemporaryFile() { unlink(path_.c_str()); }

}  // namespace VanticRestKit::test
