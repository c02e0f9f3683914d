#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>
#include <support/Certificates.h>
#include <support/FaultServer.h>
#include <support/Loading.h>

#include <chrono>

using namespace VanticRestKit;
using namespace VanticRestKit::test;
using std::chrono::hours;

namespace {

/// A root certificate that the session trusts, and its file.
struct Trust {
    CertificateAuthority root;
    TemporaryFile file{root.pem()};
};

const Trust& trust() {
    static const Trust made;
    return made;
}

std::shared_ptr<URLSession> trustingSession() {
    URLSessionConfiguration configuration;
    configuration.caBundlePath = trust().file.path();
    return URLSession::make(configuration);
}

/// The outcome of a request to a server with this certificate.
Loaded loadFrom(const Identity& identity, URLSession& session) {
    FaultServer server(always(answer(200, "secure")), &identity);
    return load(session, server.url());
}

long verifyResult(const Loaded& loaded) {
    if (!loaded.error()) return -1;
    const auto info = loaded.error()->userInfo();
    const auto underlying = info.find("NSUnderlyingError");
    if (underlying == info.end()) return -1;
    const auto details = underlying->second.error()->userInfo();
    const auto result = details.find("SSLVerifyResult");
    return result == details.end() ? 0 : static_cast<long>(*result->second.integer());
}

}  // namespace

TEST(TLS, ACertificateOfATrustedRootIsAccepted) {
    const Loaded loaded = loadFrom(trust().root.issue(), *trustingSession());
    EXPECT_EQ(loaded.body(), "secure") << loaded.story();
}

TEST(TLS, AnExpiredCertificateIsRejected) {
    const Loaded loaded =
        loadFrom(trust().root.issue({.from = hours(-48), .until = hours(-24)}), *trustingSession());
    EXPECT_EQ(loaded.code(), URLErrorCode::serverCertificateUntrusted) << loaded.story();
    EXPECT_EQ(verifyResult(loaded), 10);
}

TEST(TLS, ACertificateNotYetValidIsRejectedWithItsOwnCode) {
    const Loaded loaded =
        loadFrom(trust().root.issue({.from = hours(24), .until = hours(48)}), *trustingSession());
    EXPECT_EQ(loaded.code(), URLErrorCode::serverCertificateNotYetValid) << loaded.story();
    EXPECT_EQ(verifyResult(loaded), 9);
}

TEST(TLS, ACertificateOfAnotherHostIsRejected) {
    for (const char* subject : {"DNS:other.invalid", "IP:127.0.0.2", "DNS:127.0.0.1"}) {
        const Loaded loaded = loadFrom(trust().root.issue({.subject = subject}), *trustingSession());
        EXPECT_EQ(loaded.code(), URLErrorCode::serverCertificateUntrusted) << subject << loaded.story();
    }
}

TEST(TLS, ACertificateWithOnlyTheHostAsCommonNameIsRejected) {
    for (const char* names : {"", "email:someone@example.invalid"}) {
        const Identity identity = trust().root.issue({.subject = names, .commonName = "127.0.0.1"});
        const Loaded loaded = loadFrom(identity, *trustingSession());
        EXPECT_EQ(loaded.code(), URLErrorCode::serverCertificateUntrusted) << names << loaded.story();
        EXPECT_EQ(verifyResult(loaded), 62) << "the host name does not match";
    }
}

TEST(TLS, ASelfSignedCertificateIsRejected) {
    const Loaded loaded = loadFrom(selfSigned(), *trustingSession());
    EXPECT_EQ(loaded.code(), URLErrorCode::serverCertificateUntrusted) << loaded.story();
    EXPECT_EQ(verifyResult(loaded), 18);
}

TEST(TLS, ACertificateOfAnUnknownRootIsRejected) {
    const CertificateAuthority unknown("Unknown root");
    const Loaded loaded = loadFrom(unknown.issue(), *trustingSession());
    EXPECT_EQ(loaded.code(), URLErrorCode::serverCertificateUntrusted) << loaded.story();
}

TEST(TLS, AConfiguredBundleReplacesTheSystems) {
    // A session without a bundle trusts the system's roots, which do not include this one.
    const auto session = URLSession::make(URLSessionConfiguration::default_());
    EXPECT_EQ(loadFrom(trust().root.issue(), *session).code(), URLErrorCode::serverCertificateUntrusted);
}

TEST(TLS, ABundleThatCannotBeReadFailsTheRequest) {
    URLSessionConfiguration configuration;
    configuration.caBundlePath = "/nowhere/bundle.pem";
    const auto session = URLSession::make(configuration);
    const Loaded loaded = loadFrom(trust().root.issue(), *session);
    EXPECT_EQ(loaded.code(), URLErrorCode::secureConnectionFailed) << loaded.story();
}

TEST(TLS, APortWithoutTLSFailsTheConnection) {
    FaultServer server([](FaultConnection& connection) { connection.send("220 mail.invalid ESMTP\r\n"); });
    const auto session = trustingSession();
    const Loaded loaded = load(*session, "https://127.0.0.1:" + std::to_string(server.port()) + "/");
    EXPECT_EQ(loaded.code(), URLErrorCode::secureConnectionFailed) << loaded.story();
}

TEST(TLS, AStalledHandshakeTimesOut) {
    FaultServer server([](FaultConnection& connection) { connection.stall(); });
    const auto session = trustingSession();
    URLRequest request = requestOf("https://127.0.0.1:" + std::to_string(server.port()) + "/");
    request.setTimeoutInterval(std::chrono::duration<double>(0.2));
    EXPECT_EQ(load(*session, request).code(), URLErrorCode::timedOut);
}

TEST(TLS, ARejectedServerReceivesNothingOfTheRequest) {
    const Identity identity = selfSigned();
    FaultServer server(always(answer(200, "secure")), &identity);
    const auto session = trustingSession();
    URLRequest request = requestOf(server.url(), "POST");
    request.setHTTPBody(Data("secret"));
    EXPECT_EQ(load(*session, request).code(), URLErrorCode::serverCertificateUntrusted);
    EXPECT_TRUE(server.requests().empty());
}

TEST(TLS, ARedirectFromASecureOriginToAnInsecureOneLosesTheCredentials) {
    FaultServer plain(always(answer(200, "plain")));
    const Identity identity = trust().root.issue();
    FaultServer secure(always(answer(302, "", "Location: " + plain.url("/to") + "\r\n")), &identity);
    URLRequest request = requestOf(secure.url());
    request.addValue("secret", "Authorization");
    URLSessionConfiguration configuration;
    configuration.caBundlePath = trust().file.path();
    configuration.redirectPolicy.allowsInsecureTarget = true;
    EXPECT_EQ(load(*URLSession::make(configuration), request).body(), "plain");
    EXPECT_TRUE(secure.requests()[0].has("authorization"));
    EXPECT_FALSE(plain.requests()[0].has("authorization"));
}

TEST(TLS, ARedirectFromASecureOriginToAnInsecureOneIsRejected) {
    FaultServer plain(always(answer(200, "plain")));
    const Identity identity = trust().root.issue();
    FaultServer secure(always(answer(302, "", "Location: " + plain.url("/to") + "\r\n")), &identity);
    const Loaded loaded = load(*trustingSession(), secure.url());
    EXPECT_EQ(loaded.code(), URLErrorCode::appTransportSecurityRequiresSecureConnection) << loaded.story();
    EXPECT_EQ(loaded.status(), 302);
    EXPECT_TRUE(plain.requests().empty());
}

TEST(TLS, ATruncatedBodyIsALostConnection) {
    const Identity identity = trust().root.issue();
    for (const bool reset : {false, true}) {
        FaultServer server(
            [reset](FaultConnection& connection) {
                if (!connection.readRequest()) return;
                connection.send("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nhello");
                if (reset) connection.reset();
            },
            &identity);
        EXPECT_EQ(load(*trustingSession(), server.url()).code(), URLErrorCode::networkConnectionLost);
    }
}
