#include <VanticRestKit/platform/http/URLSession.h>

#include <curl/curl.h>
#include <gtest/gtest.h>
#include <support/Certificates.h>
#include <support/FaultServer.h>
#include <support/Loading.h>

#include <sys/stat.h>
#include <unistd.h>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

using namespace VanticRestKit;
using namespace VanticRestKit::test;

namespace {

std::string contentOf(const std::string& path) {
    std::ostringstream content;
    content << std::ifstream(path).rdbuf();
    return content.str();
}

/// A path at which there is no file, neither before nor after.
class AbsentFile {
public:
    AbsentFile() { unlink(file_.path().c_str()); }

    const std::string& path() const noexcept { return file_.path(); }
    bool exists() const { return access(path().c_str(), F_OK) == 0; }

private:
    TemporaryFile file_;
};

/// Exits with 0 if a session writes no secrets to the key log that libcurl has opened for the host.
[[noreturn]] void loadAfterTheHostInitialisedLibcurl() {
    const AbsentFile log;
    setenv("SSLKEYLOGFILE", log.path().c_str(), 1);
    curl_global_init(CURL_GLOBAL_DEFAULT);
    const CertificateAuthority root;
    const TemporaryFile roots(root.pem());
    const Identity identity = root.issue();
    FaultServer server(always(answer(200, "secure")), &identity);
    URLSessionConfiguration configuration;
    configuration.caBundlePath = roots.path();
    const bool isLoaded = load(*URLSession::make(configuration), server.url()).body() == "secure";
    std::_Exit(isLoaded && log.exists() && contentOf(log.path()).empty() ? 0 : 1);
}

}  // namespace

// Must be the first test of this program, before any session is used.
TEST(Environment, DoesNotEnableAKeyLog) {
    const AbsentFile log;
    setenv("SSLKEYLOGFILE", log.path().c_str(), 1);
    FaultServer plain(always(answer(200, "plain")));
    const auto session = URLSession::make(URLSessionConfiguration::default_());
    EXPECT_EQ(load(*session, plain.url()).body(), "plain");
    EXPECT_FALSE(log.exists());
    EXPECT_STREQ(std::getenv("SSLKEYLOGFILE"), log.path().c_str()) << "the host's variable is unchanged";
    unsetenv("SSLKEYLOGFILE");
}

TEST(Environment, SecretsAreNotWrittenToTheKeyLogOfAHostThatUsesLibcurl) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(loadAfterTheHostInitialisedLibcurl(), testing::ExitedWithCode(0), "");
}

TEST(Environment, TheKeyLogOfTheConfigurationContainsTheSecrets) {
    const CertificateAuthority root;
    const TemporaryFile roots(root.pem());
    const Identity identity = root.issue();
    const AbsentFile log;
    URLSessionConfiguration configuration;
    configuration.caBundlePath = roots.path();
    FaultServer server(always(answer(200, "secure")), &identity);
    ASSERT_EQ(load(*URLSession::make(configuration), server.url()).body(), "secure");
    EXPECT_FALSE(log.exists());

    configuration.tlsKeyLogPath = log.path();
    ASSERT_EQ(load(*URLSession::make(configuration), server.url()).body(), "secure");
    const std::string secrets = contentOf(log.path());
    EXPECT_NE(secrets.find("CLIENT_TRAFFIC_SECRET_0 "), std::string::npos) << secrets;
    EXPECT_TRUE(secrets.ends_with('\n'));
    struct stat status {};
    ASSERT_EQ(stat(log.path().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600U);

    configuration.tlsKeyLogPath = "/nowhere/key-log";
    EXPECT_EQ(load(*URLSession::make(configuration), server.url()).code(),
              URLErrorCode::secureConnectionFailed);
}
