// A separate binary: other tests start and end threads, and this test must be the first to create the shared session.
#include <gtest/gtest.h>
#include <VanticRestKit/Core/HrefURI.h>
#include <VanticRestKit/Core/Resource.h>

#include <Core/FakeContext.h>
#include <dirent.h>

namespace VanticRestKit {
namespace {

int threadsOfThisProcess() {
    int count = 0;
    DIR* const tasks = opendir("/proc/self/task");
    if (tasks == nullptr) return -1;
    while (const dirent* const entry = readdir(tasks)) count += entry->d_name[0] != '.' ? 1 : 0;
    closedir(tasks);
    return count;
}

TEST(Resource, ConstructionStartsNoThread) {
    const test::MinimalContext context;
    const HrefURI href({.withHref = "v2/time", .andQueryItems = {{"a", "1"}}});
    const int before = threadsOfThisProcess();
    ASSERT_GT(before, 0);
    for (int count = 0; count < 10; ++count) {
        EXPECT_TRUE(Resource<double>::make({.with = href}, context));
    }
    EXPECT_EQ(threadsOfThisProcess(), before);
}

}  // namespace
}  // namespace VanticRestKit
