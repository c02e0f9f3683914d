#pragma once

/// \file
/// `MessagesURI`: the route to what the service tells out of band.

#include <VanticRestKit/lumeno/Message/MessagesAppId.h>
#include <VanticRestKit/platform/url/URLQueryItem.h>
#include <VanticRestKit/Visibility.h>

#include <string>
#include <vector>

namespace VanticRestKit {

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
