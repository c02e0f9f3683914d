#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>
#include <openssl/ssl.h>
#include <support/Certificates.h>
#include <support/FaultServer.h>
#include <support/Loading.h>

#include <chrono>
#include <string>
#include <vector>

using namespace VanticRestKit;
using namespace VanticRestKit::test;

namespace {

const CertificateAuthority& root() {
    static const CertificateAuthority made;
    return made;
}

/// Trusts only `root()`.
URLSessionConfiguration trusting() {
    static const TemporaryFile file(root().pem());
    URLSessionConfiguration configuration;
    configuration.caBundlePath = file.path();
    return configuration;
}

/// The request that a server receives from a session with this configuration.
RawRequest sentWith(const URLSessionConfiguration& configuration, const URLRequest* request = nullptr) {
    FaultServer server(always(answer(200, "ok")));
    URLRequest sent = request == nullptr ? requestOf(server.url()) : *request;
    sent.setURL(URL::make(server.url()));
    const Loaded loaded = load(*URLSession::make(configuration), sent);
    EXPECT_TRUE(loaded.succeeded()) << loaded.story();
    return server.requests().empty() ? RawRequest() : server.requests()[0];
}

std::string answerOf(const FaultServer& server, const URLSessionConfiguration& configuration) {
    const Loaded loaded = load(*URLSession::make(configuration), server.url());
    return loaded.succeeded() ? loaded.body() : std::to_string(loaded.error()->code());
}

}  // namespace

TEST(Settings, AdditionalHeadersAreSentWithRequestsThatDoNotSetThem) {
    URLSessionConfiguration configuration;
    configuration.httpAdditionalHeaders = {{"X-Device", "television"}, {"accept-language", "en"}};
    URLRequest request = requestOf("http://127.0.0.1/");
    request.setValue("fr", "Accept-Language");
    const RawRequest sent = sentWith(configuration, &request);
    EXPECT_EQ(sent.header("x-device"), "television");
    EXPECT_EQ(sent.header("accept-language"), "fr");
    EXPECT_EQ(sentWith(configuration).header("accept-language"), "en");
}

TEST(Settings, AnAdditionalHeaderThatCannotBeSentFailsTheRequest) {
    URLSessionConfiguration configuration;
    configuration.httpAdditionalHeaders = {{"X-Device", "a\r\nHost: b"}};
    FaultServer server(always(answer(200, "ok")));
    EXPECT_EQ(load(*URLSession::make(configuration), server.url()).code(), URLErrorCode::badURL);
    EXPECT_TRUE(server.requests().empty());
}

TEST(Settings, TheUserAgentIsTheHostsOrTheLibrarys) {
    EXPECT_TRUE(sentWith({}).header("user-agent").starts_with("VanticRestKit/"));
    URLSessionConfiguration configuration;
    configuration.userAgent = "Television/2";
    EXPECT_EQ(sentWith(configuration).header("user-agent"), "Television/2");
    URLRequest request = requestOf("http://127.0.0.1/");
    request.setValue("Mine", "User-Agent");
    EXPECT_EQ(sentWith(configuration, &request).header("user-agent"), "Mine");
}

TEST(Settings, PublishersSendTheHeadersOfTheSession) {
    FaultServer server(always(answer(200, "ok")));
    URLSessionConfiguration configuration;
    configuration.userAgent = "Television/2";
    const auto session = URLSession::make(configuration);
    const auto subscription =
        session->dataTaskPublisher(requestOf(server.url())).sink([](auto) {}, [](auto) {});
    ASSERT_TRUE(server.waitForRequests(1));
    EXPECT_EQ(server.requests()[0].header("user-agent"), "Television/2");
}

TEST(Settings, AServerBelowTheMinimumTLSVersionIsRejected) {
    const Identity identity = root().issue();
    FaultServer server(always(answer(200, "old")), &identity);
    SSL_CTX_set_max_proto_version(server.tls(), TLS1_2_VERSION);
    URLSessionConfiguration configuration = trusting();
    EXPECT_EQ(answerOf(server, configuration), "old");
    configuration.tlsMinimumSupportedProtocolVersion = TLSProtocolVersion::TLSv13;
    EXPECT_EQ(answerOf(server, configuration), "-1200");
}

TEST(Settings, AdditionalCertificatesAreTrustedTogetherWithTheBundle) {
    const CertificateAuthority other("Other root");
    const CertificateAuthority third("Third root");
    const Identity ofRoot = root().issue();
    const Identity ofOther = other.issue();
    const Identity ofThird = third.issue();
    FaultServer one(always(answer(200, "one")), &ofRoot);
    FaultServer two(always(answer(200, "two")), &ofOther);
    FaultServer three(always(answer(200, "three")), &ofThird);
    URLSessionConfiguration configuration = trusting();
    EXPECT_EQ(answerOf(two, configuration), "-1202");
    configuration.additionalCACertificates = "A comment\n" + other.pem() + third.pem();
    const auto session = URLSession::make(configuration);
    // Two connections of one session.
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(load(*session, one.url()).body(), "one");
        EXPECT_EQ(load(*session, two.url()).body(), "two");
        EXPECT_EQ(load(*session, three.url()).body(), "three");
    }
}

TEST(Settings, AdditionalCertificatesWithoutACertificateFailSecureRequests) {
    const Identity identity = root().issue();
    FaultServer server(always(answer(200, "secure")), &identity);
    URLSessionConfiguration configuration = trusting();
    configuration.additionalCACertificates = "no certificate";
    EXPECT_EQ(answerOf(server, configuration), "-1200");
    FaultServer plain(always(answer(200, "plain")));
    EXPECT_EQ(answerOf(plain, configuration), "plain");
}

TEST(Settings, AServerThatRequestsACertificateGetsTheSessions) {
    const Identity identity = root().issue();
    const Identity client = root().issue({.commonName = "Television 7"});
    FaultServer server(always(answer(200, "welcome")), &identity);
    X509_STORE_add_cert(SSL_CTX_get_cert_store(server.tls()), client.certificate.get());
    SSL_CTX_set_verify(server.tls(), SSL_VERIFY_PEER | SSL_VERIFY_FAIL_IF_NO_PEER_CERT,
                       [](int, X509_STORE_CTX*) { return 1; });
    EXPECT_NE(answerOf(server, trusting()), "welcome");
    URLSessionConfiguration configuration = trusting();
    configuration.clientCertificate = {.certificate = client.certificatePem(), .privateKey = client.keyPem()};
    EXPECT_EQ(answerOf(server, configuration), "welcome");
    configuration.clientCertificate->privateKey = "no key";
    EXPECT_EQ(answerOf(server, configuration), "-1200");
    configuration.clientCertificate->privateKey = client.keyPem("open sesame");
    configuration.clientCertificate->passphrase = "open sesame";
    EXPECT_EQ(answerOf(server, configuration), "welcome");
    configuration.clientCertificate->passphrase = "close sesame";
    EXPECT_EQ(answerOf(server, configuration), "-1200");
}

TEST(Settings, AnEncryptedKeyWithoutItsPassphraseFailsTheConnection) {
    const Identity identity = root().issue();
    const Identity client = root().issue({.commonName = "Television 7"});
    FaultServer server(always(answer(200, "welcome")), &identity);
    URLSessionConfiguration configuration = trusting();
    configuration.clientCertificate = {.certificate = client.certificatePem(),
                                       .privateKey = client.keyPem("open sesame")};
    EXPECT_EQ(answerOf(server, configuration), "-1200");
    configuration.clientCertificate->passphrase = "";
    EXPECT_EQ(answerOf(server, configuration), "-1200");
}

TEST(Settings, AHostWithAConfiguredAddressIsNotLookedUp) {
    FaultServer server(always(answer(200, "here")));
    URLSessionConfiguration configuration;
    configuration.resolverOverrides = {
        {.host = "service.invalid", .port = server.port(), .addresses = {"127.0.0.1"}}};
    const auto session = URLSession::make(configuration);
    const std::string port = std::to_string(server.port());
    EXPECT_EQ(load(*session, "http://service.invalid:" + port + "/").body(), "here");
    EXPECT_EQ(server.requests()[0].header("host"), "service.invalid:" + port);
    EXPECT_EQ(load(*session, "http://other.invalid:" + port + "/").code(), URLErrorCode::cannotFindHost);
}

TEST(Settings, TheAddressesOfAHostAreTriedInOrder) {
    FaultServer server(always(answer(200, "second")));
    URLSessionConfiguration configuration;
    configuration.resolverOverrides = {
        {.host = "service.invalid", .port = server.port(), .addresses = {"::1", "127.0.0.2", "127.0.0.1"}}};
    configuration.dnsCacheTime = std::chrono::seconds(0);
    const std::string url = "http://service.invalid:" + std::to_string(server.port()) + "/";
    EXPECT_EQ(load(*URLSession::make(configuration), url).body(), "second");
}

TEST(Settings, HTTP1CanBePreferredToHTTP2) {
    const Identity identity = root().issue();
    FaultServer server(always(answer(200, "ok")), &identity);
    static std::string offered;
    offered.clear();
    SSL_CTX_set_alpn_select_cb(
        server.tls(),
        [](SSL*, const unsigned char**, unsigned char*, const unsigned char* in, unsigned length, void*) {
            offered.assign(reinterpret_cast<const char*>(in), length);
            return SSL_TLSEXT_ERR_NOACK;
        },
        nullptr);
    URLSessionConfiguration configuration = trusting();
    EXPECT_EQ(answerOf(server, configuration), "ok");
    EXPECT_NE(offered.find("h2"), std::string::npos);
    configuration.httpVersionPreference = HTTPVersionPreference::http1Only;
    EXPECT_EQ(answerOf(server, configuration), "ok");
    EXPECT_EQ(offered.find("h2"), std::string::npos);
}

TEST(Settings, ConcurrentConnectionsResumeAnEarlierTLSSession) {
    const Identity identity = root().issue();
    FaultServer* reached = nullptr;
    FaultServer server(
        [&reached](FaultConnection& connection) {
            while (const auto request = connection.readRequest()) {
                if (request->target == "/hold" && !reached->hold()) return;
                connection.send(answer(200, "ok"));
            }
        },
        &identity);
    reached = &server;
    URLSessionConfiguration configuration = trusting();
    configuration.httpVersionPreference = HTTPVersionPreference::http1Only;
    const auto session = URLSession::make(configuration);
    ASSERT_TRUE(load(*session, server.url()).succeeded());
    std::vector<Loaded> loads;
    for (int i = 0; i < 4; ++i) loads.push_back(startLoad(*session, requestOf(server.url("/hold"))));
    ASSERT_TRUE(server.waitForRequests(5));
    server.releaseHeld();
    for (const Loaded& loaded : loads) EXPECT_EQ(loaded.body(), "ok");
    EXPECT_EQ(server.connectionCount(), 4U);
    // Three could resume. But OpenSSL uses a session for one handshake only, so a connection that starts before the
    // server has sent the next session cannot.
    EXPECT_GE(SSL_CTX_sess_hits(server.tls()), 1);
}

TEST(Settings, ANewConnectionResumesAnEarlierTLSSession) {
    const Identity identity = root().issue();
    FaultServer server(
        [](FaultConnection& connection) {
            // Each connection serves one request.
            if (connection.readRequest()) connection.send(answer(200, "once", "Connection: close\r\n"));
        },
        &identity);
    const auto session = URLSession::make(trusting());
    for (int i = 0; i < 5; ++i) EXPECT_EQ(load(*session, server.url()).body(), "once");
    EXPECT_EQ(server.connectionCount(), 5U);
    EXPECT_EQ(SSL_CTX_sess_hits(server.tls()), 4);
}
