#pragma once

/// \file
/// `DeleteDatasetURI`: the route that deletes a dataset.

#include <VanticRestKit/platform/url/URLQueryItem.h>
#include <VanticRestKit/trelvo/Common/SourceSystem.h>

#include <string>
#include <vector>

namespace VanticRestKit {

/// Deletes the dataset of a namespace.
struct DeleteDatasetURI {
    std::string uid{};
    SourceSystem source{};
    std::string namespace_{};
    std::string httpMethod = "DELETE";

    std::string path() const { return "v2/dataset/" + namespace_; }
    std::vector<URLQueryItem> queryItems() const {
        return {{"UID", uid}, {"source", std::string(rawValue(source))}};
    }

    friend bool operator==(const DeleteDatasetURI&, const DeleteDatasetURI&) = default;
};

}  // namespace VanticRestKit
