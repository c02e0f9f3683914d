#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>
#include <support/Codings.h>
#include <support/FaultServer.h>
#include <support/Loading.h>
#include <support/Sanitized.h>

#include <sys/resource.h>
#include <unistd.h>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

using namespace VanticRestKit;
using namespace VanticRestKit::test;

namespace {

constexpr std::size_t megabyte = 1024 * 1024;

class Memory : public testing::Test {
protected:
    // Each process starts from the beginning, so that no thread is lost in a fork.
    void SetUp() override {
#ifdef VRK_IS_SANITIZED
        GTEST_SKIP() << "a sanitizer needs the address space that this test limits";
#endif
        GTEST_FLAG_SET(death_test_style, "threadsafe");
    }
};

/// Limits the process to its current memory plus `size` bytes.
void limitMemory(std::size_t size) {
    std::size_t pages = 0;
    std::FILE* const file = std::fopen("/proc/self/statm", "re");
    if (file == nullptr || std::fscanf(file, "%zu", &pages) != 1) std::abort();
    std::fclose(file);
    rlimit limit{};
    getrlimit(RLIMIT_AS, &limit);
    limit.rlim_cur = pages * static_cast<std::size_t>(sysconf(_SC_PAGESIZE)) + size;
    setrlimit(RLIMIT_AS, &limit);
}

/// Exits with 0 if an endless body with `coding`, made of repeated `piece`, fails as expected and the session still
/// works afterwards.
[[noreturn]] void loadWithLittleMemory(const std::string& coding, const std::string& piece) {
    const std::string head = "HTTP/1.1 200 OK\r\n" + coding + "\r\n";
    FaultServer server([&](FaultConnection& connection) {
        while (const auto request = connection.readRequest()) {
            if (request->target != "/endless") {
                connection.send(answer(200, "small"));
                continue;
            }
            connection.send(head);
            while (connection.send(piece)) {
            }
        }
    });
    auto configuration = URLSessionConfiguration::default_();
    configuration.limits.maxDecodingRatio = URLSessionLimits::unlimited;
    const auto session = URLSession::make(configuration);
    load(*session, server.url());
    limitMemory(200 * megabyte);
    const Loaded loaded = load(*session, server.url("/endless"));
    if (loaded.code() != URLErrorCode::dataLengthExceedsMaximum) {
        std::fprintf(stderr, "%s\n", loaded.story().c_str());
        std::_Exit(1);
    }
    std::_Exit(load(*session, server.url()).body() == "small" ? 0 : 2);
}

/// A value from the status of the process in KB, such as its peak memory, "VmHWM".
std::size_t kilobytesOf(const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(name + ":")) return std::stoul(line.substr(name.size() + 1));
    }
    std::abort();
}

/// Measures the peak memory of the process, in KB, while it loads a body.
struct Peak {
    std::size_t before = kilobytesOf("VmRSS");

    bool isWithin(std::size_t size) const {
        const std::size_t peak = kilobytesOf("VmHWM");
        std::fprintf(stderr, "%zu KB before, %zu KB at the peak\n", before, peak);
        return peak <= before + (size + constant) / 1024;
    }

    /// For threads, socket buffers and the state of a decoder.
    static constexpr std::size_t constant = 16 * megabyte;
};

/// Exits with 0 if a body that fills the limit arrives, an endless one fails, and neither needs more memory than the
/// limit plus a constant. `head` is the head of the response, and repeated `piece` its body on the wire.
[[noreturn]] void loadUpToTheLimit(const std::string& head, const std::string& piece, std::size_t pieces) {
    FaultServer server([&](FaultConnection& connection) {
        while (const auto request = connection.readRequest()) {
            const bool isEndless = request->target == "/endless";
            connection.send("HTTP/1.1 200 OK\r\nConnection: close\r\n" + head + "\r\n");
            for (std::size_t i = 0; isEndless || i < pieces; ++i) {
                if (!connection.send(piece)) break;
            }
            return;
        }
    });
    constexpr std::size_t limit = 96 * megabyte;
    auto configuration = URLSessionConfiguration::default_();
    configuration.limits.maxBodyBytes = limit;
    configuration.limits.maxDecodingRatio = URLSessionLimits::unlimited;
    const auto session = URLSession::make(configuration);
    const Peak peak;
    {
        const Loaded whole = load(*session, server.url());
        if (!whole.data() || whole.data()->size() != limit || !peak.isWithin(limit)) std::_Exit(1);
    }
    const Loaded endless = load(*session, server.url("/endless"));
    const bool isRefused = endless.code() == URLErrorCode::dataLengthExceedsMaximum;
    std::_Exit(isRefused && peak.isWithin(limit) ? 0 : 2);
}

}  // namespace

TEST_F(Memory, ABodyNeedsNoMoreThanItsLimitPlusAConstant) {
    EXPECT_EXIT(loadUpToTheLimit("", std::string(megabyte, 'x'), 96), testing::ExitedWithCode(0), "");
}

TEST_F(Memory, ACodedBodyNeedsNoMoreThanItsLimitPlusAConstant) {
    EXPECT_EXIT(loadUpToTheLimit("Content-Encoding: gzip\r\n", gzipped(sampleText(megabyte)), 96),
                testing::ExitedWithCode(0), "");
}

TEST_F(Memory, ABodyTooLargeForMemoryFailsItsLoadNotTheProcess) {
    EXPECT_EXIT(loadWithLittleMemory("", std::string(megabyte, 'x')), testing::ExitedWithCode(0), "");
}

TEST_F(Memory, ACodedBodyTooLargeForMemoryFailsItsLoadNotTheProcess) {
    // Concatenated gzip files of one megabyte each.
    EXPECT_EXIT(loadWithLittleMemory("Content-Encoding: gzip\r\n", gzipped(std::string(megabyte, 'x'))),
                testing::ExitedWithCode(0), "");
}
