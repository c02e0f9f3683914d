#pragma once

/// \file
/// The routes to datasets: `GetDatasetURI`, `CreateDatasetURI`, `UpdateDatasetURI` and `DeleteDatasetURI`.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/error/AnyValue.h>
#include <VanticRestKit/platform/json/JSONEncoder.h>
#include <VanticRestKit/platform/url/URLQueryItem.h>
#include <VanticRestKit/trelvo/Common/RouteValues.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
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

/// Creates the dataset of a namespace. The dataset travels in the body as a form field.
struct VRK_EXPORT CreateDatasetURI {
    std::string uid{};
    SourceSystem source{};
    std::string namespace_{};
    Dictionary dataset{};
    std::string httpMethod = "POST";

    std::string path() const { return "v2/dataset/" + namespace_; }
    std::vector<URLQueryItem> queryItems() const {
        return {{"UID", uid}, {"source", std::string(rawValue(source))}, {"include", "private"}};
    }
    /// Empty where a number of the dataset is none, or a text is not UTF-8: no body goes out then.
    std::optional<Data> postData() const;

    /// The dataset alone, as one flat object: nothing else of this value is encoded.
    void encode(JSONObjectWriter& writer) const;

    friend bool operator==(const CreateDatasetURI&, const CreateDatasetURI&) = default;
};

/// Changes the dataset of a namespace. The dataset travels in the body as a form field.
struct VRK_EXPORT UpdateDatasetURI {
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
    std::optional<Data> postData() const;

    /// The dataset alone, as one flat object: nothing else of this value is encoded.
    void encode(JSONObjectWriter& writer) const;

    friend bool operator==(const UpdateDatasetURI&, const UpdateDatasetURI&) = default;
};

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
