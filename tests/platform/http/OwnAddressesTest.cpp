#include <VanticRestKit/platform/http/curl/detail/OwnAddresses.h>

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

using namespace VanticRestKit::detail;
using std::chrono::milliseconds;

namespace {

constexpr TimePoint now{std::chrono::seconds(1000)};
using Addresses = std::vector<std::string>;

}  // namespace

// No machine has an address that begins with 240.

TEST(OwnAddresses, ReportsOnceTheAddressesThatTheMachineDoesNotHave) {
    OwnAddresses addresses;
    addresses.note("240.0.0.1");
    addresses.note("2001:db8::1");
    addresses.note("240.0.0.1");
    EXPECT_EQ(addresses.takeLost(now), (Addresses{"240.0.0.1", "2001:db8::1"}));
    EXPECT_EQ(addresses.takeLost(now + milliseconds(10)), Addresses());
}

TEST(OwnAddresses, AreNotLostWhileASocketCanBeBoundToThem) {
    OwnAddresses addresses;
    addresses.note("127.0.0.1");
    addresses.note("::1");
    addresses.note("0.0.0.0");
    EXPECT_EQ(addresses.takeLost(now), Addresses());
}

TEST(OwnAddresses, AreCheckedAtMostOncePerMillisecond) {
    OwnAddresses addresses;
    addresses.note("240.0.0.1");
    EXPECT_EQ(addresses.takeLost(now).size(), 1U);
    addresses.note("240.0.0.2");
    EXPECT_EQ(addresses.takeLost(now), Addresses());
    EXPECT_EQ(addresses.takeLost(now + milliseconds(1)), Addresses{"240.0.0.2"});
}

TEST(OwnAddresses, AStringThatIsNotAnAddressIsNeverLost) {
    OwnAddresses addresses;
    addresses.note("host.test");
    EXPECT_EQ(addresses.takeLost(now), Addresses());
}
