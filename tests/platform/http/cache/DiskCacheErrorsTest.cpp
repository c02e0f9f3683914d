#include <VanticRestKit/platform/http/cache/detail/DiskCacheErrors.h>
#include <VanticRestKit/platform/http/detail/URLErrors.h>

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace VanticRestKit::detail {

namespace {

std::string textOf(const Error& error, std::string_view key) {
    const auto userInfo = error.userInfo();
    const auto found = userInfo.find(std::string(key));
    return found == userInfo.end() || found->second.text() == nullptr ? "none" : *found->second.text();
}

TEST(DiskCacheErrors, DescribeEachCode) {
    std::set<std::string> descriptions;
    for (std::int64_t code = 1; code <= 10; ++code) {
        const Error error = makeDiskCacheError(static_cast<DiskCacheErrorCode>(code), "", "");
        EXPECT_EQ(error.domain(), DiskCacheErrorDomain);
        EXPECT_EQ(error.code(), code);
        EXPECT_TRUE(error.localizedDescription().ends_with('.')) << error.localizedDescription();
        descriptions.insert(error.localizedDescription());
    }
    EXPECT_EQ(descriptions.size(), 10U);
}

TEST(DiskCacheErrors, HaveThePathAndTheReasonIfThereIsOne) {
    const Error error = makeDiskCacheError(DiskCacheErrorCode::ioFailed, "/path", "the reason");
    EXPECT_EQ(textOf(error, NSURLErrorFailingURLStringErrorKey), "/path");
    EXPECT_EQ(textOf(error, NSDebugDescriptionKey), "the reason");
    EXPECT_EQ(textOf(makeDiskCacheError(DiskCacheErrorCode::ioFailed, "/path", ""), NSDebugDescriptionKey),
              "none");
}

}  // namespace

}  // namespace VanticRestKit::detail
