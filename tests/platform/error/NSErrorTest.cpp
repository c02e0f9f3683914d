#include <gtest/gtest.h>
#include <VanticRestKit/platform/error/NSError.h>

#include <string>

namespace VanticRestKit {
namespace {

struct DescribedError {
    static const ErrorTag& errorTag() {
        static const ErrorTag tag;
        return tag;
    }
    std::string errorDomain() const { return "Host.DescribedError"; }
    std::int64_t errorCode() const { return 4; }
    Dictionary errorUserInfo() const { return {{"key", "value"}}; }
    std::string generalDescription() const { return "own text"; }
};

TEST(NSError, HasTheDomainCodeAndUserInformationItWasCreatedWith) {
    const NSError error("Domain", -5, {{"key", 1}});
    EXPECT_EQ(error.domain(), "Domain");
    EXPECT_EQ(error.code(), -5);
    EXPECT_EQ(error.userInfo(), (Dictionary{{"key", 1}}));
}

TEST(NSError, IsDescribedByItsUserInformationOrElseByDomainAndCode) {
    EXPECT_EQ(NSError("D", 1, {{"NSLocalizedDescription", "told"}}).localizedDescription(), "told");
    EXPECT_EQ(NSError("D", 1).localizedDescription(), composedErrorDescription("D", 1));
}

TEST(NSError, KeepsThePartsAndDescriptionOfTheOriginalError) {
    const NSError bridged{Error(DescribedError{})};
    EXPECT_EQ(bridged.domain(), "Host.DescribedError");
    EXPECT_EQ(bridged.code(), 4);
    EXPECT_EQ(bridged.userInfo(), (Dictionary{{"key", "value"}}));
    EXPECT_EQ(bridged.localizedDescription(), "own text");
    EXPECT_EQ(Error(bridged).localizedDescription(), "own text");
    EXPECT_EQ(Error(bridged).as<DescribedError>(), nullptr);
}

TEST(NSError, RoundTripsThroughAnError) {
    const Error error = NSError("D", 1, {{"NSLocalizedDescription", "told"}});
    ASSERT_NE(error.as<NSError>(), nullptr);
    EXPECT_EQ(error.as<NSError>()->domain(), "D");
    EXPECT_EQ(error.localizedDescription(), "told");
    EXPECT_EQ(NSError(error).localizedDescription(), "told");
}

}  // namespace
}  // namespace VanticRestKit
