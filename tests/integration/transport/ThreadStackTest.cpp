#include <VanticRestKit/platform/dispatch/DispatchQueue.h>
#include <VanticRestKit/platform/http/cache/URLCache.h>
#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>
#include <support/Certificates.h>
#include <support/Codings.h>
#include <support/FaultServer.h>
#include <support/Loading.h>
#include <support/Sanitized.h>
#include <support/SmallStack.h>

#include <unistd.h>
#include <cstddef>
#include <filesystem>
#include <string>
#include <utility>

// A separate program, since the stack size is a setting of the whole process.

using namespace VanticRestKit;
using namespace VanticRestKit::test;

namespace {

#ifdef VRK_IS_SANITIZED
// A sanitizer makes each frame several times larger.
constexpr std::size_t stackSize = 4 * DispatchQueue::minThreadStackSize;
#else
constexpr std::size_t stackSize = DispatchQueue::minThreadStackSize;
#endif

class ThreadStack : public testing::Test {
protected:
    static void SetUpTestSuite() { DispatchQueue::setThreadStackSize(stackSize); }
};

}  // namespace

TEST_F(ThreadStack, OfTheDelegateQueueHasTheSizeThatWasSet) {
    FaultServer server(always(answer(200, "answer")));
    const auto session = URLSession::make({});
    std::size_t size = 0;
    const Loaded loaded;
    session
        ->dataTask(requestOf(server.url()),
                   [&size, completion = loaded.completion()](auto data, auto response, auto error) mutable {
                       size = ownStackSize();
                       completion(std::move(data), std::move(response), std::move(error));
                   })
        ->resume();
    EXPECT_EQ(loaded.body(), "answer") << loaded.story();
    // glibc may reuse the larger stack of a thread that has ended.
    EXPECT_LE(size, 4 * stackSize + 64 * 1024);
}

TEST_F(ThreadStack, OfTheMinimumIsEnoughForTLS) {
    const CertificateAuthority root;
    const TemporaryFile roots(root.pem());
    const Identity identity = root.issue();
    FaultServer server(always(answer(200, "secure")), &identity);
    URLSessionConfiguration configuration;
    configuration.caBundlePath = roots.path();
    const auto session = URLSession::make(configuration);
    const Loaded loaded = load(*session, server.url());
    EXPECT_EQ(loaded.body(), "secure") << loaded.story();
}

TEST_F(ThreadStack, OfTheMinimumIsEnoughForEachContentCoding) {
    const std::string text = sampleText(2 * 1024 * 1024);
    const auto session = URLSession::make({});
    for (const auto& [coding, body] : {std::pair{"gzip", gzipped(text)}, std::pair{"br", brotlied(text)}}) {
        FaultServer server(always(answer(200, body, std::string("Content-Encoding: ") + coding + "\r\n")));
        const Loaded loaded = load(*session, server.url());
        EXPECT_TRUE(loaded.body() == text) << coding << ": " << loaded.story();
    }
}

TEST_F(ThreadStack, OfTheMinimumIsEnoughForTheCacheOnDisk) {
    const std::string folder = testing::TempDir() + "thread-stack-" + std::to_string(getpid());
    std::filesystem::remove_all(folder);
    FaultServer server(always(answer(200, "stored", "Cache-Control: max-age=3600\r\n")));
    URLSessionConfiguration configuration;
    configuration.urlCache = URLCache::makeOnDisk({.folder = folder, .diskCapacity = 1024 * 1024});
    const auto session = URLSession::make(configuration);
    const Loaded loaded = load(*session, server.url());
    EXPECT_EQ(loaded.body(), "stored") << loaded.story();
    configuration.urlCache->flush();
    std::filesystem::remove_all(folder);
}
