#pragma once

/// \file
/// `RecentVideoHistoryURI`: the route to the videos watched last.

#include <VanticRestKit/platform/url/URLQueryItem.h>
#include <VanticRestKit/trelvo/Common/SourceSystem.h>
#include <VanticRestKit/trelvo/Common/TrelvoSlug.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// Asks for the videos watched last: those done, or, where `markedAsDone` is false or empty, those not done.
struct RecentVideoHistoryURI {
    std::optional<bool> markedAsDone{};
    std::string uid{};
    SourceSystem source{};
    std::uint64_t limit{};
    TrelvoSlug slug{};

    std::string path() const { return "v2/history/video/recent"; }
    std::vector<URLQueryItem> queryItems() const {
        return {{"UID", uid},
                {"slug", std::string(rawValue(slug))},
                {"source", std::string(rawValue(source))},
                {"done", markedAsDone.value_or(false) ? "1" : "0"},
                {"raw", "1"},
                {"limit", std::to_string(limit)}};
    }

    friend bool operator==(const RecentVideoHistoryURI&, const RecentVideoHistoryURI&) = default;
};

}  // namespace VanticRestKit
