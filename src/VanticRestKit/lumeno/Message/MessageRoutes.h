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

/// The raw texts of `MessagesAppId`.
template <>
struct RawTexts<MessagesAppId> {
    /// The cases with their names and raw texts, in case order.
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
    /// The application that asks.
    MessagesAppId appId{};
    /// Whether a user is signed in.
    bool loggedIn{};

    /// The path below the base URL.
    std::string path() const { return "v2/messages"; }
    /// The query items, in order.
    std::vector<URLQueryItem> queryItems() const;

    friend bool operator==(const MessagesURI&, const MessagesURI&) = default;
};

}  // namespace VanticRestKit
