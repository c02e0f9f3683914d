#pragma once

/// \file
/// `ListAllShowsURI`: the route to the shows that a user has saved.

#include <VanticRestKit/platform/url/URLQueryItem.h>
#include <VanticRestKit/trelvo/Common/SourceSystem.h>
#include <VanticRestKit/trelvo/Common/TrelvoSlug.h>

#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// Asks for the shows that a user has saved.
struct ListAllShowsURI {
    std::string uid{};
    SourceSystem source{};
    std::optional<TrelvoSlug> slug{};

    std::string path() const {
        return slug ? "v2/saved/" + std::string(rawValue(*slug)) + "/show" : "v2/saved";
    }
    std::vector<URLQueryItem> queryItems() const {
        return {{"UID", uid}, {"raw", "1"}, {"source", std::string(rawValue(source))}};
    }

    friend bool operator==(const ListAllShowsURI&, const ListAllShowsURI&) = default;
};

}  // namespace VanticRestKit
