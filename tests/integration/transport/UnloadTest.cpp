#include <gtest/gtest.h>
#include <support/Event.h>
#include <support/FaultServer.h>

#include <dlfcn.h>

using namespace VanticRestKit::test;

TEST(Unloading, APluginWithTheLibraryCanBeClosedDuringALoad) {
    FaultServer* reached = nullptr;
    FaultServer server([&reached](FaultConnection& connection) {
        if (connection.readRequest() && reached->hold()) connection.send(answer(200, "ok"));
    });
    reached = &server;
    void* const plugin = dlopen(VRK_UNLOAD_PLUGIN, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(plugin, nullptr) << dlerror();
    const auto start =
        reinterpret_cast<void (*)(const char*, void (*)(void*), void*)>(dlsym(plugin, "startLoadInPlugin"));
    ASSERT_NE(start, nullptr) << dlerror();
    Event ended;
    start(
        server.url().c_str(), [](void* event) { static_cast<Event*>(event)->signal(); }, &ended);
    ASSERT_TRUE(server.waitForRequests(1));
    EXPECT_EQ(dlclose(plugin), 0);
    server.releaseHeld();
    EXPECT_TRUE(ended.wait());
    EXPECT_NE(dlopen(VRK_UNLOAD_PLUGIN, RTLD_NOW | RTLD_NOLOAD), nullptr) << "the plugin was unloaded";
}
