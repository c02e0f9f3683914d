#pragma once

/// \file
/// `UpdateDatasetURI`: the route that changes a dataset.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/error/AnyValue.h>
#include <VanticRestKit/platform/json/JSONEncoder.h>
#include <VanticRestKit/platform/url/URLQueryItem.h>
#include <VanticRestKit/trelvo/Common/SourceSystem.h>
#include <VanticRestKit/trelvo/Dataset/DatasetBody.h>

#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// Changes the dataset of a namespace. The dataset travels in the body as a form field.
struct UpdateDatasetURI {
    std::string uid{};
    SourceSystem source{};
    std::string namespace_{};
    Dictionary dataset{};
    std::string httpMethod = "PATCH";

    std::string path() const { return "v2/dataset/" + namespace_; }
    std::vector<URLQueryItem> queryItems() const {
        return {{"UID", uid}, {"source", std::string(rawValue(source))}, {"include", "private"}};
    }
    /// Empty where a number of the dataset is none, or a text is not UTF-8: no body goes out then.
    std::optional<Data> postData() const { return datasetBody(dataset); }

    /// The dataset alone, as one flat object: nothing else of this value is encoded.
    void encode(JSONObjectWriter& writer) const { encodeDataset(dataset, writer); }

    friend bool operator==(const UpdateDatasetURI&, const UpdateDatasetURI&) = default;
};

}  // namespace VanticRestKit
