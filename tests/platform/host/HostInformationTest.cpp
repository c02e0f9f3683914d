#include <gtest/gtest.h>
#include <VanticRestKit/platform/host/HostInformation.h>

#include <sys/utsname.h>
#include <memory>
#include <string>
#include <thread>

namespace VanticRestKit {
namespace {

class TestHost final : public HostInformation {
public:
    explicit TestHost(std::string version) : version_(std::move(version)) {}
    std::optional<std::string> applicationVersion() const override { return version_; }

private:
    std::string version_;
};

/// Restores the defaults after each test.
class HostInformationTest : public testing::Test {
protected:
    ~HostInformationTest() override { HostInformation::supply(nullptr); }
};

TEST_F(HostInformationTest, HasNoApplicationVersionByDefault) {
    EXPECT_EQ(HostInformation::current()->applicationVersion(), std::nullopt);
}

TEST_F(HostInformationTest, ReportsKernelAndMachineByDefault) {
    utsname names{};
    ASSERT_EQ(uname(&names), 0);
    ASSERT_STRNE(names.release, "");
    EXPECT_EQ(HostInformation::current()->systemVersion(), names.release);
    EXPECT_EQ(HostInformation::current()->machine(), names.machine);
}

TEST_F(HostInformationTest, IsTheOneSuppliedLast) {
    HostInformation::supply(std::make_shared<TestHost>("1"));
    const auto first = HostInformation::current();
    EXPECT_EQ(first->applicationVersion(), "1");
    HostInformation::supply(std::make_shared<TestHost>("2"));
    EXPECT_EQ(HostInformation::current()->applicationVersion(), "2");
    // A caller that still holds the previous one can keep using it.
    EXPECT_EQ(first->applicationVersion(), "1");
}

TEST_F(HostInformationTest, HasDefaultsForWhatTheHostDoesNotProvide) {
    const std::string system = HostInformation::current()->systemVersion();
    const std::string machine = HostInformation::current()->machine();
    HostInformation::supply(std::make_shared<TestHost>("1"));
    EXPECT_EQ(HostInformation::current()->systemVersion(), system);
    EXPECT_EQ(HostInformation::current()->machine(), machine);
}

TEST_F(HostInformationTest, HasTheDefaultsAgainAfterNullIsSupplied) {
    HostInformation::supply(std::make_shared<TestHost>("1"));
    HostInformation::supply(nullptr);
    ASSERT_NE(HostInformation::current(), nullptr);
    EXPECT_EQ(HostInformation::current()->applicationVersion(), std::nullopt);
}

TEST_F(HostInformationTest, IsReleasedWhenAnotherOneIsSupplied) {
    const auto host = std::make_shared<TestHost>("1");
    const std::weak_ptr<const TestHost> watched = host;
    HostInformation::supply(host);
    EXPECT_EQ(watched.use_count(), 2);
    HostInformation::supply(nullptr);
    EXPECT_EQ(watched.use_count(), 1);
}

TEST_F(HostInformationTest, CanBeSuppliedWhileOtherThreadsReadIt) {
    constexpr int times = 2'000;
    HostInformation::supply(std::make_shared<TestHost>("a version that needs an allocation 0"));
    std::thread reader([] {
        for (int i = 0; i < times; ++i) {
            EXPECT_EQ(HostInformation::current()->applicationVersion()->substr(0, 9), "a version");
        }
    });
    for (int i = 0; i < times; ++i) {
        HostInformation::supply(
            std::make_shared<TestHost>("a version that needs an allocation " + std::to_string(i)));
    }
    reader.join();
}

}  // namespace
}  // namespace VanticRestKit
