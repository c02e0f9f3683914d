// A separate program, since it replaces the C library's name lookup so that no query leaves the machine.

#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>
#include <support/Event.h>
#include <support/FaultServer.h>
#include <support/Loading.h>

#include <dlfcn.h>
#include <netdb.h>
#include <netinet/in.h>
#include <algorithm>
#include <condition_variable>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

using namespace VanticRestKit;
using namespace VanticRestKit::test;

namespace {

/// The behaviour of the replaced lookup, and its counts.
struct Resolver {
    std::mutex mutex;
    std::condition_variable changed;
    bool isHeld = false;
    std::size_t underWay = 0;
    std::size_t mostAtOnce = 0;
    std::size_t lookups = 0;

    void hold(bool held) {
        const std::lock_guard lock(mutex);
        isHeld = held;
        mostAtOnce = lookups = 0;
        changed.notify_all();
    }
    void release() {
        const std::lock_guard lock(mutex);
        isHeld = false;
        changed.notify_all();
    }
    bool waitForLookups(std::size_t count) {
        std::unique_lock lock(mutex);
        return changed.wait_for(lock, std::chrono::seconds(30), [&] { return lookups >= count; });
    }
    void look() {
        std::unique_lock lock(mutex);
        mostAtOnce = std::max(mostAtOnce, ++underWay);
        ++lookups;
        changed.notify_all();
        changed.wait_for(lock, std::chrono::seconds(30), [&] { return !isHeld; });
        --underWay;
    }
    std::size_t most() {
        const std::lock_guard lock(mutex);
        return mostAtOnce;
    }
};

Resolver& resolver() {
    static Resolver& shared = *new Resolver;
    return shared;
}

struct Answer {
    addrinfo info;
    sockaddr_in address;
};

}  // namespace

extern "C" __attribute__((visibility("default"))) int getaddrinfo(const char* name, const char* service,
                                                                  const addrinfo* hints, addrinfo** result) {
    resolver().look();
    if (name != nullptr && std::strstr(name, "missing") != nullptr) return EAI_NONAME;
    auto* const answer = static_cast<Answer*>(std::calloc(1, sizeof(Answer)));
    answer->address.sin_family = AF_INET;
    answer->address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (service != nullptr) answer->address.sin_port = htons(static_cast<std::uint16_t>(std::atoi(service)));
    answer->info.ai_family = AF_INET;
    answer->info.ai_socktype = hints != nullptr ? hints->ai_socktype : SOCK_STREAM;
    answer->info.ai_addrlen = sizeof(answer->address);
    answer->info.ai_addr = reinterpret_cast<sockaddr*>(&answer->address);
    *result = &answer->info;
    return 0;
}

extern "C" __attribute__((visibility("default"))) void freeaddrinfo(addrinfo* info) { std::free(info); }

namespace {

std::string urlOf(const std::string& host, const FaultServer& server) {
    return "http://" + host + ":" + std::to_string(server.port()) + "/";
}

class Lookups : public testing::Test {
protected:
    void SetUp() override {
        // Otherwise the names of these tests would be looked up in the network.
        ASSERT_EQ(dlsym(RTLD_DEFAULT, "getaddrinfo"), reinterpret_cast<void*>(&getaddrinfo));
        resolver().hold(false);
    }
    void TearDown() override { resolver().release(); }

    FaultServer server_{always(answer(200, "found"))};
    std::shared_ptr<URLSession> session_ = URLSession::make(URLSessionConfiguration::default_());
};

}  // namespace

TEST_F(Lookups, NoMoreRunThanTheLimitAllows) {
    resolver().hold(true);
    std::vector<Loaded> loads;
    for (int i = 0; i < 100; ++i) {
        loads.push_back(
            startLoad(*session_, requestOf(urlOf("host" + std::to_string(i) + ".test", server_))));
    }
    ASSERT_TRUE(resolver().waitForLookups(16));
    // An IP address needs no lookup, so it is not held up.
    EXPECT_EQ(load(*session_, server_.url()).body(), "found");
    resolver().release();
    for (const Loaded& loaded : loads) EXPECT_EQ(loaded.body(), "found") << loaded.story();
    EXPECT_EQ(resolver().most(), 16U);
}

TEST_F(Lookups, AFailedLookupFreesItsSlot) {
    URLSessionConfiguration configuration;
    configuration.limits.maxNameLookups = 1;
    const auto session = URLSession::make(configuration);
    const Loaded missing = startLoad(*session, requestOf(urlOf("missing.test", server_)));
    const Loaded found = startLoad(*session, requestOf(urlOf("found.test", server_)));
    EXPECT_EQ(missing.code(), URLErrorCode::cannotFindHost) << missing.story();
    EXPECT_EQ(found.body(), "found") << found.story();
    EXPECT_EQ(resolver().most(), 1U);
}

TEST_F(Lookups, AnAbandonedLookupFreesItsSlot) {
    URLSessionConfiguration configuration;
    configuration.limits.maxNameLookups = 1;
    const auto session = URLSession::make(configuration);
    ASSERT_EQ(load(*session, urlOf("known.test", server_)).body(), "found");
    resolver().hold(true);
    Loaded stuck;
    const auto task = session->dataTask(requestOf(urlOf("stuck.test", server_)), stuck.completion());
    task->resume();
    ASSERT_TRUE(resolver().waitForLookups(1));
    const Loaded next = startLoad(*session, requestOf(urlOf("next.test", server_)));
    EXPECT_EQ(load(*session, urlOf("known.test", server_)).body(), "found") << "its address is cached";
    EXPECT_EQ(resolver().most(), 1U);
    task->cancel();
    EXPECT_EQ(stuck.code(), URLErrorCode::cancelled);
    ASSERT_TRUE(resolver().waitForLookups(2));
    resolver().release();
    EXPECT_EQ(next.body(), "found") << next.story();
}
