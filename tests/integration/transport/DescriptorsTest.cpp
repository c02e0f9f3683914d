#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>
#include <support/Certificates.h>
#include <support/FaultServer.h>
#include <support/Loading.h>
#include <support/Sockets.h>

#include <fcntl.h>
#include <sys/socket.h>
#include <set>
#include <string>

using namespace VanticRestKit;
using namespace VanticRestKit::test;

namespace {

/// The descriptors that a child process would inherit now.
std::set<int> inherited() {
    std::set<int> found;
    for (int descriptor = 0; descriptor < 1024; ++descriptor) {
        const int flags = fcntl(descriptor, F_GETFD);
        if (flags >= 0 && (flags & FD_CLOEXEC) == 0) found.insert(descriptor);
    }
    return found;
}

}  // namespace

TEST(Descriptors, OfASessionAreNotInheritedByChildProcesses) {
    const CertificateAuthority root;
    const TemporaryFile roots(root.pem());
    const Identity identity = root.issue();
    URLSessionConfiguration configuration;
    configuration.caBundlePath = roots.path();
    FaultServer server(always(answer(200, "secure")), &identity);
    // A socket pair of the host is not changed.
    int pair[2] = {-1, -1};
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0, pair), 0);
    const Socket one(pair[0]);
    const Socket other(pair[1]);
    const std::set<int> before = inherited();
    const auto session = URLSession::make(configuration);
    ASSERT_EQ(load(*session, server.url()).body(), "secure");
    EXPECT_EQ(inherited(), before);
}
