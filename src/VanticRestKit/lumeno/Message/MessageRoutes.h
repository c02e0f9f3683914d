#pragma once

/// \file
/// `MessagesURI`: the route to the messages for an application, which is a `MessagesAppId`.

#include <VanticRestKit/platform/json/RawText.h>
#include <VanticRestKit/platform/url/URLQueryItem.h>
#include <VanticRestKit/Visibility.h>

#include <string>
#include <vector>

namespace VanticRestKit {

/// The application that requests messages.
enum class MessagesAppId { lumeno, kidslumeno, lumenoInternational, vanticme };

/// The raw strings of `MessagesAppId`.
template <>
struct RawTexts<MessagesAppId> {
    /// The cases with their names and raw strings, in declaration order.
    static constexpr RawCase<MessagesAppId> cases[] = {
        {MessagesAppId::lumeno, "lumeno", "lumeno"},
        {MessagesAppId::kidslumeno, "kidslumeno", "kids"},
        {MessagesAppId::lumenoInternational, "lumenoInternational", "lumeno int"},
        {MessagesAppId::vanticme, "vanticme", "me"},
    };
};

/// The messages for this application on this device. The query items that describe the application and the device come
/// from `HostInformation` and are computed at each call.
struct VRK_EXPORT MessagesURI {
    /// The application.
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
