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

/// The datasets of a namespace, optionally with private data and the data of the family.
struct GetDatasetURI {
    /// The id of the user.
    std::string uid{};
    /// The calling source.
    SourceSystem source{};
    /// The namespace of the dataset.
    std::string namespace_{};
    /// Whether private data is included.
    bool includePrivateData{};
    /// Whether data of the family is included.
    bool includeFamilyData{};

    /// The path below the base URL.
    std::string path() const { return "v2/dataset/" + namespace_; }
    /// The query items, in order.
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

/// Creates the dataset of a namespace. The dataset is sent in the body, as a form field.
struct VRK_EXPORT CreateDatasetURI {
    /// The id of the user.
    std::string uid{};
    /// The calling source.
    SourceSystem source{};
    /// The namespace of the dataset.
    std::string namespace_{};
    /// The data to store. Nested objects and lists are omitted.
    Dictionary dataset{};
    /// The method of the request.
    std::string httpMethod = "POST";

    /// The path below the base URL.
    std::string path() const { return "v2/dataset/" + namespace_; }
    /// The query items, in order.
    std::vector<URLQueryItem> queryItems() const {
        return {{"UID", uid}, {"source", std::string(rawValue(source))}, {"include", "private"}};
    }
    /// Empty if a number in the dataset is not finite or a string is not UTF-8; no body is sent then.
    std::optional<Data> postData() const;

    /// Writes only the dataset, as a flat object.
    void encode(JSONObjectWriter& writer) const;

    friend bool operator==(const CreateDatasetURI&, const CreateDatasetURI&) = default;
};

/// Changes the dataset of a namespace. The dataset is sent in the body, as a form field.
struct VRK_EXPORT UpdateDatasetURI {
    /// The id of the user.
    std::string uid{};
    /// The calling source.
    SourceSystem source{};
    /// The namespace of the dataset.
    std::string namespace_{};
    /// The data to store. Nested objects and lists are omitted.
    Dictionary dataset{};
    /// The method of the request.
    std::string httpMethod = "PATCH";

    /// The path below the base URL.
    std::string path() const { return "v2/dataset/" + namespace_; }
    /// The query items, in order.
    std::vector<URLQueryItem> queryItems() const {
        return {{"UID", uid}, {"source", std::string(rawValue(source))}, {"include", "private"}};
    }
    /// Empty if a number in the dataset is not finite or a string is not UTF-8; no body is sent then.
    std::optional<Data> postData() const;

    /// Writes only the dataset, as a flat object.
    void encode(JSONObjectWriter& writer) const;

    friend bool operator==(const UpdateDatasetURI&, const UpdateDatasetURI&) = default;
};

/// Deletes the dataset of a namespace.
struct DeleteDatasetURI {
    /// The id of the user.
    std::string uid{};
    /// The calling source.
    SourceSystem source{};
    /// The namespace of the dataset.
    std::string namespace_{};
    /// The method of the request.
    std::string httpMethod = "DELETE";

    /// The path below the base URL.
    std::string path() const { return "v2/dataset/" + namespace_; }
    /// The query items, in order.
    std::vector<URLQueryItem> queryItems() const {
        return {{"UID", uid}, {"source", std::string(rawValue(source))}};
    }

    friend bool operator==(const DeleteDatasetURI&, const DeleteDatasetURI&) = default;
};

}  // namespace VanticRestKit
