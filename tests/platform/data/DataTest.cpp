#include <gtest/gtest.h>
#include <VanticRestKit/platform/data/Data.h>

#include <algorithm>
#include <string>
#include <type_traits>
#include <utility>

namespace VanticRestKit {
namespace {

using std::string_view_literals::operator""sv;

bool hasTrailingZeros(const Data& data) {
    const char* const end = data.data() + data.size();
    return std::all_of(end, end + Data::padding, [](char byte) { return byte == '\0'; });
}

TEST(Data, HoldsTheBytesItWasCreatedWith) {
    EXPECT_EQ(Data("text").view(), "text");
    EXPECT_EQ(Data("a\0b"sv).view(), "a\0b"sv);
    EXPECT_EQ(Data(std::string("taken over")).view(), "taken over");
}

TEST(Data, CopiesWhatItDoesNotOwn) {
    std::string bytes = "text";
    const Data data{std::string_view(bytes)};
    bytes = "else";
    EXPECT_EQ(data.view(), "text");
}

TEST(Data, IsEmptyWithANonNullPointerIfItHasNoBytes) {
    for (const Data& data : {Data(), Data(""), Data(std::string())}) {
        EXPECT_TRUE(data.empty());
        EXPECT_EQ(data.size(), 0u);
        ASSERT_NE(data.data(), nullptr);
        EXPECT_TRUE(hasTrailingZeros(data));
        EXPECT_EQ(data, Data());
    }
}

TEST(Data, HasReadableZeroPaddingAfterItsLastByte) {
    for (std::size_t size = 0; size < 200; ++size) {
        EXPECT_TRUE(hasTrailingZeros(Data(std::string(size, 'x')))) << size;
        EXPECT_TRUE(hasTrailingZeros(Data(std::string_view(std::string(size, 'x'))))) << size;
    }
}

TEST(Data, TakesOverAStringWithCapacityForThePadding) {
    std::string bytes;
    bytes.reserve(1000);
    bytes = "text that is longer than a short string";
    const char* const place = bytes.data();
    EXPECT_EQ(Data(std::move(bytes)).data(), place);
}

TEST(Data, CopiesShareOneBuffer) {
    const Data data("text");
    const Data copy = data;
    EXPECT_EQ(copy.data(), data.data());
}

TEST(Data, IsEmptyAfterAMove) {
    Data data("text");
    const Data taken = std::move(data);
    EXPECT_EQ(taken.view(), "text");
    EXPECT_EQ(data, Data());
    EXPECT_TRUE(hasTrailingZeros(data));

    Data assigned;
    Data other("other");
    assigned = std::move(other);
    EXPECT_EQ(assigned.view(), "other");
    EXPECT_EQ(other, Data());
    static_assert(std::is_nothrow_move_constructible_v<Data> && std::is_nothrow_move_assignable_v<Data>);
}

TEST(Data, ComparesByItsBytes) {
    EXPECT_EQ(Data("text"), Data(std::string("text")));
    EXPECT_NE(Data("text"), Data("texts"));
    EXPECT_NE(Data("text"), Data("test"));
    EXPECT_NE(Data("a\0b"sv), Data("a\0c"sv));
}

}  // namespace
}  // namespace VanticRestKit
