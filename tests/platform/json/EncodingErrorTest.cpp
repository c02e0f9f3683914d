#include <VanticRestKit/platform/json/EncodingError.h>

#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/json/JSONEncoder.h>

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace VanticRestKit {
namespace {

TEST(EncodingError, HasTheKeyAndTheReason) {
    const EncodingError error("level", "The number is not finite.");
    EXPECT_EQ(error.key(), "level");
    EXPECT_EQ(error.debugDescription(), "The number is not finite.");
}

TEST(EncodingError, HasThePlatformsDomainCodeAndMessage) {
    const Error error(EncodingError("level", "The number is not finite."));
    EXPECT_EQ(error.domain(), "NSCocoaErrorDomain");
    EXPECT_EQ(error.code(), 4866);
    constexpr const char* message =
        "The data couldn\u2019t be written because it isn\u2019t in the correct format.";
    EXPECT_EQ(error.localizedDescription(), message);
    EXPECT_EQ(EncodingError("level", "").localizedDescription(), message);
    EXPECT_EQ(EncodingError("level", "").generalDescription(), message);
}

TEST(EncodingError, IsEqualToAnyOther) { EXPECT_EQ(EncodingError("a", "b"), EncodingError("c", "d")); }

struct TwoFaults {
    void encode(JSONObjectWriter& writer) const {
        writer.write("good", 1.5);
        writer.write("first", std::numeric_limits<double>::infinity());
        writer.write("second", std::numeric_limits<double>::quiet_NaN());
        writer.write("third", "\xFF");
    }
};

TEST(EncodingError, IsThatOfTheFirstValueThatCannotBeEncoded) {
    const Result<Data, Error> data = JSONEncoder().encode(TwoFaults());
    ASSERT_FALSE(data);
    EXPECT_EQ(data.error().as<EncodingError>()->key(), "first");
}

}  // namespace
}  // namespace VanticRestKit
