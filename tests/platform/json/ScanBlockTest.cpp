// Compares the block functions for this processor, and those without vector instructions, with their definition.

#include <gtest/gtest.h>
#include <VanticRestKit/platform/json/detail/ScanBlock.h>
#include <VanticRestKit/platform/json/detail/ScanBlockScalar.h>

#include <array>
#include <cstdint>
#include <random>
#include <string>

namespace VanticRestKit::json::scan {
namespace {

/// The bytes that are read for a block starting anywhere in the first half.
using Bytes = std::array<char, 2 * bytesOfBlock>;

bool isStop(char byte) {
    const auto c = static_cast<unsigned char>(byte);
    return c == '"' || c == '\\' || c < 0x20 || c > 0x7F;
}

template <class Matches>
std::uint32_t bitsOf(const char* at, Matches matches) {
    std::uint32_t bits = 0;
    for (unsigned i = 0; i < bytesOfBlock; ++i) bits |= std::uint32_t{matches(at[i])} << i;
    return bits;
}

void expectAsDefined(const char* at) {
    const std::uint32_t expected = bitsOf(at, isStop);
    EXPECT_EQ(expected, stops(at));
    EXPECT_EQ(expected, scalar::stops(at));
    const std::uint32_t quoted = bitsOf(at, [](char c) { return c == '"'; });
    EXPECT_EQ(quoted, quotes(at));
    EXPECT_EQ(quoted, scalar::quotes(at));
    const std::uint32_t half = expected & 0xFFFF;
    ASSERT_EQ(half != 0, stopsOfHalf(at) != 0);
    ASSERT_EQ(half != 0, scalar::stopsOfHalf(at) != 0);
    if (half == 0) return;
    EXPECT_EQ(first(half), firstOfHalf(stopsOfHalf(at)));
    EXPECT_EQ(first(half), scalar::firstOfHalf(scalar::stopsOfHalf(at)));
}

TEST(ScanBlock, ClassifiesEachByteAtEachPosition) {
    for (unsigned byte = 0; byte < 256; ++byte) {
        for (std::size_t place = 0; place < bytesOfBlock; ++place) {
            SCOPED_TRACE(std::to_string(byte) + " at " + std::to_string(place));
            Bytes bytes;
            bytes.fill('a');
            bytes[place] = static_cast<char>(byte);
            expectAsDefined(bytes.data());
            bytes.fill('"');
            bytes[place] = static_cast<char>(byte);
            expectAsDefined(bytes.data());
        }
    }
}

TEST(ScanBlock, ClassifiesRandomBytesAtEachAlignment) {
    std::mt19937 random(20);
    for (int round = 0; round < 2000; ++round) {
        Bytes bytes;
        for (char& byte : bytes) byte = static_cast<char>(random());
        expectAsDefined(bytes.data() + random() % bytesOfBlock);
    }
}

TEST(ScanBlock, ComparesOnlyThePrefixForEachSize) {
    alignas(bytesOfHalf) Bytes prefix;
    for (std::size_t i = 0; i < prefix.size(); ++i) prefix[i] = static_cast<char>(i * 37 + 200);
    for (std::size_t size = 0; size <= bytesOfBlock; ++size) {
        const Prefix first{prefix.data(), size, (std::uint64_t{1} << size) - 1};
        for (std::size_t changed = 0; changed < bytesOfBlock; ++changed) {
            SCOPED_TRACE(std::to_string(size) + " bytes, one changed at " + std::to_string(changed));
            Bytes bytes = prefix;
            EXPECT_TRUE(startsWith(bytes.data(), first));
            bytes[changed] = static_cast<char>(bytes[changed] ^ 0x80);
            EXPECT_EQ(changed >= size, startsWith(bytes.data(), first));
            EXPECT_EQ(changed >= size, scalar::startsWith(bytes.data(), first));
        }
    }
}

TEST(ScanBlock, NothingMatchesAPrefixWithBitsBeyondTheBlock) {
    alignas(bytesOfHalf) const Bytes bytes{};
    for (const std::uint64_t beyond : {std::uint64_t{1}, std::uint64_t{3}}) {
        const Prefix none{bytes.data(), 0, beyond << bytesOfBlock};
        EXPECT_FALSE(startsWith(bytes.data(), none));
        EXPECT_FALSE(scalar::startsWith(bytes.data(), none));
    }
}

}  // namespace
}  // namespace VanticRestKit::json::scan
