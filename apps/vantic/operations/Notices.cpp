#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Message/Message.h>
#include <VanticRestKit/lumeno/Message/MessageRoutes.h>
#include <VanticRestKit/lumeno/NowNext/LivestreamRegion.h>
#include <VanticRestKit/lumeno/NowNext/NowNext.h>
#include <VanticRestKit/lumeno/ProductAlert/ProductAlert.h>
#include <VanticRestKit/lumeno/Remap/Remap.h>
#include <VanticRestKit/lumeno/Video/VideoList.h>
#include <VanticRestKit/platform/host/HostInformation.h>

#include "arguments/Values.h"
#include "operations/Operation.h"

namespace vantic {

using namespace VanticRestKit;

namespace {

/// Information about the host from the options; values that are not given come from the library.
class DescribedHost final : public HostInformation {
public:
    explicit DescribedHost(const Arguments& given)
        : appVersion_(given.optionalText("appVersion")),
          systemVersion_(given.optionalText("systemVersion")),
          machine_(given.optionalText("machine")) {}

    std::optional<std::string> applicationVersion() const override {
        return appVersion_ ? appVersion_ : HostInformation::applicationVersion();
    }
    std::string systemVersion() const override {
        return systemVersion_ ? *systemVersion_ : HostInformation::systemVersion();
    }
    std::string machine() const override { return machine_ ? *machine_ : HostInformation::machine(); }

private:
    std::optional<std::string> appVersion_;
    std::optional<std::string> systemVersion_;
    std::optional<std::string> machine_;
};

std::optional<Loadable> callMessages(const Arguments& given, const Host& host) {
    HostInformation::supply(std::make_shared<DescribedHost>(given));
    return loadable(Endpoint::Messages(
        {.appId = readCase<MessagesAppId>("appId", given.text("appId")), .loggedIn = given.flag("loggedIn")},
        host));
}

std::optional<Loadable> callRemap(const Arguments& given, const Host& host) {
    std::vector<URLQueryItem> items;
    for (const std::string& text : given.texts("queryItems"))
        items.push_back(readQueryItem("queryItems", text));
    return loadable(Endpoint::Remap({.path = given.text("path"), .queryItems = std::move(items)}, host));
}

}  // namespace

std::vector<Operation> noticeOperations() {
    using Given = const Arguments&;
    using In = const Host&;
    return {
        {"NowNext",
         "what a live channel shows now and next",
         {required("houseNumber", "NUMBER", "the house number of the video")},
         [](Given given, In host) {
             return loadable(Endpoint::NowNext({.houseNumber = given.text("houseNumber")}, host));
         }},
        {"Livestreams",
         "the live channels",
         {oneOf(optional("region", "REGION", "the region of the viewer"), rawTexts<LivestreamRegion>)},
         [](Given given, In host) {
             return loadable(Endpoint::Livestreams(
                 {.region = given.optionally("region", readCase<LivestreamRegion>)}, host));
         }},
        {"Messages",
         "messages for the users of an application",
         {oneOf(required("appId", "APP", "the application"), rawTexts<MessagesAppId>),
          flag("loggedIn", "a user is signed in"),
          optional("appVersion", "VERSION", "the version of the application"),
          optional("systemVersion", "VERSION", "the version of the operating system"),
          optional("machine", "NAME", "the name of the device")},
         callMessages},
        {"ProductAlert",
         "an alert",
         {required("alertId", "ID", "the id of the alert")},
         [](Given given, In host) {
             return loadable(Endpoint::ProductAlert({.alertId = given.text("alertId")}, host));
         }},
        {"Remap",
         "translates a path of the web site to that of the API",
         {required("path", "PATH", "the path to look up"),
          repeated("queryItems", "NAME=VALUE", "one of its query items")},
         callRemap},
    };
}

}  // namespace vantic
