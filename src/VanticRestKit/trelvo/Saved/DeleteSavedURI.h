#pragma once

/// \file
/// `DeleteSavedURI`: the route that deletes what a user has saved.

#include <VanticRestKit/platform/url/URLQueryItem.h>
#include <VanticRestKit/trelvo/Common/SourceSystem.h>
#include <VanticRestKit/trelvo/Common/TrelvoSlug.h>

#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// Deletes all that a user has saved.
struct DeleteSavedURI {
    std::string uid{};
    SourceSystem source{};
    std::optional<TrelvoSlug> slug{};
    std::string httpMethod = "DELETE";

    std::string path() const { return slug ? "v2/saved/" + std::string(rawValue(*slug)) : "v2/saved"; }
    std::vector<URLQueryItem> queryItems() const {
        return {{"UID", uid}, {"source", std::string(rawValue(source))}};
    }

    friend bool operator==(const DeleteSavedURI&, const DeleteSavedURI&) = default;
};

}  // namespace VanticRestKit
