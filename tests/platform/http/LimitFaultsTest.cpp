#include <VanticRestKit/platform/http/detail/LimitFaults.h>

#include <gtest/gtest.h>

using namespace VanticRestKit;
using namespace VanticRestKit::detail;

TEST(LimitFaults, WriteSizesInTheLargestExactUnit) {
    EXPECT_EQ(sizeText(0), "0 bytes");
    EXPECT_EQ(sizeText(1023), "1023 bytes");
    EXPECT_EQ(sizeText(64 * 1024), "64 KB");
    EXPECT_EQ(sizeText(1024 * 1024 + 1024), "1025 KB");
    EXPECT_EQ(sizeText(256 * 1024 * 1024), "256 MB");
}

TEST(LimitFaults, NameTheFieldAndTheLimit) {
    const TransportFault fault = largeHeadFault({.maxHeadBytes = 1000});
    EXPECT_EQ(fault.code, URLErrorCode::dataLengthExceedsMaximum);
    EXPECT_EQ(fault.reason, "The headers of the answer are larger than 1000 bytes (maxHeadBytes).");
}

TEST(LimitFaults, NameTheTransportsLimitIfItIsSmaller) {
    const URLSessionLimits limits{.maxHeaderLineBytes = URLSessionLimits::unlimited,
                                  .maxHeadBytes = URLSessionLimits::unlimited};
    EXPECT_EQ(longHeaderLineFault(limits).reason,
              "A header line of the answer is longer than 100 KB (maxHeaderLineBytes).");
    EXPECT_EQ(largeHeadFault(limits).reason,
              "The headers of the answer are larger than 300 KB (maxHeadBytes).");
}
