#include <VanticRestKit/platform/json/DecodingError.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

namespace VanticRestKit {
namespace {

using Kind = DecodingError::Kind;

TEST(CodingKey, IsAKeyOrAnIndex) {
    const CodingKey key("title");
    ASSERT_NE(key.key(), nullptr);
    EXPECT_EQ(*key.key(), "title");
    EXPECT_EQ(key.index(), nullptr);
    const CodingKey index(std::size_t{3});
    ASSERT_NE(index.index(), nullptr);
    EXPECT_EQ(*index.index(), 3U);
    EXPECT_EQ(index.key(), nullptr);
}

TEST(CodingKey, IsEqualOnlyToTheSameStep) {
    EXPECT_EQ(CodingKey("a"), CodingKey(std::string("a")));
    EXPECT_NE(CodingKey("a"), CodingKey("b"));
    EXPECT_EQ(CodingKey(std::size_t{1}), CodingKey(std::size_t{1}));
    EXPECT_NE(CodingKey(std::size_t{1}), CodingKey(std::size_t{2}));
    EXPECT_NE(CodingKey("0"), CodingKey(std::size_t{0}));
    EXPECT_NE(CodingKey(""), CodingKey(std::size_t{0}));
}

TEST(DecodingError, IsEqualToAnotherOfItsKind) {
    const DecodingError error(Kind::typeMismatch, {"a"}, "first");
    EXPECT_EQ(error, DecodingError(Kind::typeMismatch, {"b"}, "second"));
    EXPECT_NE(error, DecodingError(Kind::dataCorrupted, {"a"}, "first"));
}

TEST(DecodingError, NamesItsKinds) {
    EXPECT_STREQ(nameOf(Kind::keyNotFound), "keyNotFound");
    EXPECT_STREQ(nameOf(Kind::valueNotFound), "valueNotFound");
    EXPECT_STREQ(nameOf(Kind::typeMismatch), "typeMismatch");
    EXPECT_STREQ(nameOf(Kind::dataCorrupted), "dataCorrupted");
}

}  // namespace
}  // namespace VanticRestKit
