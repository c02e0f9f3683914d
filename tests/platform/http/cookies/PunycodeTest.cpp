#include <VanticRestKit/platform/http/cookies/detail/Punycode.h>

#include <gtest/gtest.h>

#include <string>

using VanticRestKit::detail::punycode;

TEST(Punycode, EncodesNonASCIILetters) {
    EXPECT_EQ(punycode("bücher"), "bcher-kva");
    EXPECT_EQ(punycode("münchen"), "mnchen-3ya");
    EXPECT_EQ(punycode("例え"), "r8jz45g");
    EXPECT_EQ(punycode("ü"), "tda");
}

// From the samples of RFC 3492, section 7.1.
TEST(Punycode, EncodesNamesThatNeedALargeBias) {
    EXPECT_EQ(punycode("他们为什么不说中文"), "ihqwcrb4cv8a8dqg056pqjye");
    EXPECT_EQ(punycode("3年b組金八先生"), "3b-ww4c5e180e575a65lsy2b");
    EXPECT_EQ(punycode("安室奈美恵-with-super-monkeys"), "-with-super-monkeys-pc58ag80a8qai00g7n9n");
}

TEST(Punycode, RejectsNamesThatAreNotUTF8OrTooLong) {
    EXPECT_EQ(punycode("\xFF"), std::nullopt);
    EXPECT_EQ(punycode(std::string(64, 'a')), std::nullopt);
}
