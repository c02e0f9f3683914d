#include <gtest/gtest.h>
#include <VanticRestKit/platform/error/NSError.h>

#include <string>

namespace VanticRestKit {
namespace {

struct TalkingError {
    static const ErrorTag& errorTag() {
        static const ErrorTag tag;
        return tag;
    }
    std::string errorDomain() const { return "Host.TalkingError"; }
    std::int64_t errorCode() const { return 4; }
    Dictionary errorUserInfo() const { return {{"key", "value"}}; }
    std::string generalDescription() const { return "own text"; }
};

TEST(NSError, HasThePartsItWasMadeOf) {
    const NSError error("Domain", -5, {{"key", 1}});
    EXPECT_EQ(error.domain(), "Domain");
    EXPECT_EQ(error.code(), -5);
    EXPECT_EQ(error.userInfo(), (Dictionary{{"key", 1}}));
}

TEST(NSError, DescribesItselfAsItsUserInformationSaysElseByDomainAndCode) {
    EXPECT_EQ(NSError("D", 1, {{"NSLocalizedDescription", "told"}}).localizedDescription(), "told");
    EXPECT_EQ(NSError("D", 1).localizedDescription(), composedErrorDescription("D", 1));
}

TEST(NSError, KeepsPartsAndDescriptionOfTheErrorThatItIsMadeFrom) {
    const NSError bridged{Error(TalkingError{})};
    EXPECT_EQ(bridged.domain(), "Host.TalkingError");
    EXPECT_EQ(bridged.code(), 4);
    EXPECT_EQ(bridged.userInfo(), (Dictionary{{"key", "value"}}));
    EXPECT_EQ(bridged.localizedDescription(), "own text");
    EXPECT_EQ(Error(bridged).localizedDescription(), "own text");
    EXPECT_EQ(Error(bridged).as<TalkingError>(), nullptr);
}

TEST(NSError, ComesBackFromAnErrorAsItWas) {
    const Error error = NSError("D", 1, {{"NSLocalizedDescription", "told"}});
    ASSERT_NE(error.as<NSError>(), nullptr);
    EXPECT_EQ(error.as<NSError>()->domain(), "D");
    EXPECT_EQ(error.localizedDescription(), "told");
    EXPECT_EQ(NSError(error).localizedDescription(), "told");
}

}  // namespace
}  // namespace VanticRestKit
