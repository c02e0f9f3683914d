#pragma once

/// \file
/// `MessagesURI`: the route to the messages for an application, named by a `MessagesAppId`.

#include <VanticRestKit/platform/json/RawText.h>
#include <VanticRestKit/platform/url/URLQueryItem.h>
#include <VanticRestKit/Visibility.h>

#include <string>
#include <vector>

namespace VanticRestKit {

/// Which application asks for messages.
enum class MessagesAppId { lumeno, kidslumeno, lumenoInternational, vanticme };

template <>
struct RawTexts<MessagesAppId> {
    static constexpr RawCase<MessagesAppId> cases[] = {
        {MessagesAppId::lumeno, "lumeno", "lumeno"},
        {MessagesAppId::kidslumeno, "kidslumeno", "kids"},
        {MessagesAppId::lumenoInternational, "lumenoInternational", "lumeno int"},
        {MessagesAppId::vanticme, "vanticme", "me"},
    };
};

/// Asks for what the service has to tell this application on this device. What it says of them comes from
/// `HostInformation` and is computed anew at each read.
struct VRK_EXPORT MessagesURI {
    MessagesAppId appId{};
    bool loggedIn{};

    std::string path() const { return "v2/messages"; }
    std::vector<URLQueryItem> queryItems() const;

    friend bool operator==(const MessagesURI&, const MessagesURI&) = default;
};

}  // namespace VanticRestKit
