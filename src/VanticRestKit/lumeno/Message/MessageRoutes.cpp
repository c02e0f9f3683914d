#include <VanticRestKit/lumeno/Message/MessageRoutes.h>

#include <VanticRestKit/platform/host/HostInformation.h>

#include <memory>
#include <optional>

namespace VanticRestKit {

std::vector<URLQueryItem> MessagesURI::queryItems() const {
    const std::shared_ptr<const HostInformation> host = HostInformation::current();
    const std::optional<std::string> appVersion = host->applicationVersion();

    std::vector<URLQueryItem> items{{"appId", std::string(rawValue(appId))}};
    if (appVersion) items.push_back({"appVersion", appVersion});
    items.push_back({"platform", "ios"});
    items.push_back({"platformVersion", host->systemVersion()});
    items.push_back({"device", host->machine()});
    items.push_back({"authStatus", loggedIn ? "true" : "false"});
    return items;
}

}  // namespace VanticRestKit
