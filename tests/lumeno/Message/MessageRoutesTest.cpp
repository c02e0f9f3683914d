#include <lumeno/Routes.h>
#include <VanticRestKit/lumeno/Message/MessageRoutes.h>
#include <VanticRestKit/platform/host/HostInformation.h>

#include <sys/utsname.h>
#include <memory>
#include <utility>

namespace VanticRestKit {
namespace {

using Items = std::vector<URLQueryItem>;

/// A host that counts how often each of its values is read.
class CountingHost final : public HostInformation {
public:
    explicit CountingHost(std::optional<std::string> version) : version_(std::move(version)) {}
    std::optional<std::string> applicationVersion() const override {
        ++asked;
        return version_;
    }
    std::string systemVersion() const override { return "17." + std::to_string(asked); }
    std::string machine() const override { return "Box7,1"; }

    mutable int asked = 0;

private:
    std::optional<std::string> version_;
};

/// Supplies a host while this object exists.
class Supplied {
public:
    explicit Supplied(std::shared_ptr<const HostInformation> host) {
        HostInformation::supply(std::move(host));
    }
    ~Supplied() { HostInformation::supply(nullptr); }
    Supplied(const Supplied&) = delete;
    Supplied& operator=(const Supplied&) = delete;
};

TEST(MessagesAppId, HasFourCasesInOrderAndNoneForAnUnknownValue) {
    const std::vector<std::pair<MessagesAppId, std::string>> cases = {
        {MessagesAppId::lumeno, "lumeno"},
        {MessagesAppId::kidslumeno, "kids"},
        {MessagesAppId::lumenoInternational, "lumeno int"},
        {MessagesAppId::vanticme, "me"}};
    ASSERT_EQ(std::size(RawTexts<MessagesAppId>::cases), cases.size());
    for (std::size_t i = 0; i < cases.size(); ++i) {
        EXPECT_EQ(RawTexts<MessagesAppId>::cases[i].value, cases[i].first);
        EXPECT_EQ(rawValue(cases[i].first), cases[i].second);
        EXPECT_EQ(fromRawValue<MessagesAppId>(cases[i].second), cases[i].first);
    }
    for (const char* const unknown :
         {"", "kidslumeno", "lumenoInternational", "lumenoint", "Lumeno", "vanticme", "me "}) {
        EXPECT_EQ(fromRawValue<MessagesAppId>(unknown), std::nullopt) << unknown;
    }
}

TEST(MessagesURI, DescribesApplicationAndDeviceInOrder) {
    const Supplied host(std::make_shared<CountingHost>("3.4 (5)"));
    test::expectAGet(MessagesURI{.appId = MessagesAppId::vanticme, .loggedIn = true}, "v2/messages",
                     {{"appId", "me"},
                      {"appVersion", "3.4 (5)"},
                      {"platform", "ios"},
                      {"platformVersion", "17.1"},
                      {"device", "Box7,1"},
                      {"authStatus", "true"}});
}

TEST(MessagesURI, OmitsTheVersionIfTheApplicationHasNone) {
    const Supplied host(std::make_shared<CountingHost>(std::nullopt));
    const Items items = MessagesURI{.appId = MessagesAppId::lumeno, .loggedIn = true}.queryItems();
    EXPECT_EQ(items, (Items{{"appId", "lumeno"},
                            {"platform", "ios"},
                            {"platformVersion", "17.1"},
                            {"device", "Box7,1"},
                            {"authStatus", "true"}}));
}

TEST(MessagesURI, SendsAnEmptyVersion) {
    const Supplied host(std::make_shared<CountingHost>(""));
    const Items items = MessagesURI{.appId = MessagesAppId::lumeno, .loggedIn = true}.queryItems();
    ASSERT_EQ(items.size(), 6U);
    EXPECT_EQ(items[1], (URLQueryItem{"appVersion", ""}));
}

TEST(MessagesURI, SendsFalseForAUserWhoIsNotLoggedIn) {
    const Items items = MessagesURI{.appId = MessagesAppId::lumeno, .loggedIn = false}.queryItems();
    EXPECT_EQ(items.back(), (URLQueryItem{"authStatus", "false"}));
}

TEST(MessagesURI, KeepsTheSpaceInTheNameOfAnApplication) {
    const Items items =
        MessagesURI{.appId = MessagesAppId::lumenoInternational, .loggedIn = true}.queryItems();
    EXPECT_EQ(items.front(), (URLQueryItem{"appId", "lumeno int"}));
    EXPECT_EQ((MessagesURI{.appId = MessagesAppId::kidslumeno}.queryItems().front()),
              (URLQueryItem{"appId", "kids"}));
}

TEST(MessagesURI, ComputesItsItemsForEachRead) {
    const MessagesURI route{.appId = MessagesAppId::lumeno, .loggedIn = true};
    const auto host = std::make_shared<CountingHost>("1");
    const Supplied supplied(host);
    EXPECT_EQ(route.queryItems()[3], (URLQueryItem{"platformVersion", "17.1"}));
    EXPECT_EQ(route.queryItems()[3], (URLQueryItem{"platformVersion", "17.2"}));
    EXPECT_EQ(host->asked, 2);
    // Building a request reads them again, once.
    EXPECT_EQ(ResourceURI(route).queryItems()[3], (URLQueryItem{"platformVersion", "17.3"}));
    EXPECT_EQ(host->asked, 3);
    HostInformation::supply(std::make_shared<CountingHost>("2"));
    EXPECT_EQ(route.queryItems()[1], (URLQueryItem{"appVersion", "2"}));
    EXPECT_EQ(host->asked, 3);
}

TEST(MessagesURI, DescribesTheMachineByDefault) {
    utsname names{};
    ASSERT_EQ(uname(&names), 0);
    EXPECT_EQ((MessagesURI{.appId = MessagesAppId::lumeno, .loggedIn = false}.queryItems()),
              (Items{{"appId", "lumeno"},
                     {"platform", "ios"},
                     {"platformVersion", names.release},
                     {"device", names.machine},
                     {"authStatus", "false"}}));
}

}  // namespace
}  // namespace VanticRestKit
