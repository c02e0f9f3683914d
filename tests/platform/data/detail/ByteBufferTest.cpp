#include <VanticRestKit/platform/data/detail/ByteBuffer.h>

#include <gtest/gtest.h>
#include <support/Sanitized.h>

#include <limits>
#include <string>

using namespace VanticRestKit;
using namespace VanticRestKit::detail;

TEST(ByteBuffer, CollectsPiecesOfAnySize) {
    for (const std::size_t piece : {std::size_t{1}, std::size_t{63}, std::size_t{1000}}) {
        ByteBuffer buffer;
        std::string expected;
        for (std::size_t i = 0; i < 100; ++i) {
            const std::string bytes(piece, static_cast<char>('a' + i % 26));
            ASSERT_TRUE(buffer.append(bytes));
            expected += bytes;
        }
        EXPECT_EQ(buffer.size(), expected.size());
        EXPECT_TRUE(buffer.view() == expected);
        EXPECT_TRUE(buffer.take().view() == expected);
    }
}

TEST(ByteBuffer, ReturnsPaddedDataThatOutlivesIt) {
    Data data;
    {
        ByteBuffer buffer;
        buffer.reserve(3);
        ASSERT_TRUE(buffer.append("abc"));
        data = buffer.take();
    }
    const Data copy = data;
    EXPECT_EQ(copy.view(), "abc");
    EXPECT_EQ(copy.data(), data.data());
    EXPECT_EQ(std::string(copy.data() + 3, Data::padding), std::string(Data::padding, '\0'));
}

TEST(ByteBuffer, AddsTheBytesWrittenToItsSpareMemory) {
    ByteBuffer buffer;
    ASSERT_TRUE(buffer.append("ab"));
    const auto spare = buffer.spare(100, 200);
    ASSERT_GE(spare.size(), 100U);
    ASSERT_LE(spare.size(), 200U);
    spare[0] = 'c';
    buffer.extend(1);
    EXPECT_EQ(buffer.view(), "abc");
    const Data data = buffer.take();
    EXPECT_EQ(data.view(), "abc");
    EXPECT_EQ(std::string(data.data() + 3, Data::padding), std::string(Data::padding, '\0'));
}

TEST(ByteBuffer, HasNoSpareMemoryAfterItHasFailed) {
#ifdef VRK_IS_SANITIZED
    GTEST_SKIP() << "a sanitizer ends a process that requests so much memory";
#endif
    ByteBuffer buffer;
    EXPECT_TRUE(buffer.spare(std::numeric_limits<std::size_t>::max() / 2, 10).empty());
    EXPECT_TRUE(buffer.hasFailed());
    EXPECT_TRUE(buffer.spare(1, 1).empty());
}

TEST(ByteBuffer, ReturnsNoBytesIfNothingWasCollected) {
    ByteBuffer buffer;
    EXPECT_EQ(buffer.view(), "");
    EXPECT_TRUE(buffer.append(""));
    EXPECT_TRUE(buffer.take().empty());
}

TEST(ByteBuffer, FailsIfMemoryIsExhaustedAndAcceptsNothingMore) {
    ByteBuffer buffer;
    ASSERT_TRUE(buffer.append("abc"));
    // Its bytes are never read.
    const std::string_view huge("abc", std::numeric_limits<std::size_t>::max() / 2);
    EXPECT_FALSE(buffer.append(huge));
    EXPECT_TRUE(buffer.hasFailed());
    EXPECT_FALSE(buffer.append("d"));
    EXPECT_EQ(buffer.size(), 0U);
}
