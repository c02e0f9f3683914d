#pragma once

/// \file
/// `DeleteHistoryURI`: the route that deletes a history.

#include <VanticRestKit/platform/url/URLQueryItem.h>
#include <VanticRestKit/trelvo/Common/SourceSystem.h>
#include <VanticRestKit/trelvo/Common/TrelvoSlug.h>

#include <string>
#include <vector>

namespace VanticRestKit {

/// Deletes the viewing history of a user.
struct DeleteHistoryURI {
    std::string uid{};
    SourceSystem source{};
    std::string httpMethod = "DELETE";

    std::string path() const { return "v2/history"; }
    std::vector<URLQueryItem> queryItems() const {
        return {{"UID", uid},
                {"source", std::string(rawValue(source))},
                {"slug", std::string(rawValue(TrelvoSlug::watchlist))}};
    }

    friend bool operator==(const DeleteHistoryURI&, const DeleteHistoryURI&) = default;
};

}  // namespace VanticRestKit
