#pragma once

/// \file
/// `GetDatasetURI`: the route that reads a dataset.

#include <VanticRestKit/platform/url/URLQueryItem.h>
#include <VanticRestKit/trelvo/Common/SourceSystem.h>

#include <string>
#include <vector>

namespace VanticRestKit {

/// Asks for the datasets of a namespace, with private data and that of the family where wanted.
struct GetDatasetURI {
    std::string uid{};
    SourceSystem source{};
    std::string namespace_{};
    bool includePrivateData{};
    bool includeFamilyData{};

    std::string path() const { return "v2/dataset/" + namespace_; }
    std::vector<URLQueryItem> queryItems() const {
        std::vector<URLQueryItem> items{{"UID", uid}, {"source", std::string(rawValue(source))}};
        if (includePrivateData || includeFamilyData) {
            std::string include = includePrivateData ? "private" : "";
            if (includeFamilyData) include += include.empty() ? "family" : ",family";
            items.push_back({"include", include});
        }
        return items;
    }

    friend bool operator==(const GetDatasetURI&, const GetDatasetURI&) = default;
};

}  // namespace VanticRestKit
