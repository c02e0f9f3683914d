#pragma once

/// \file
/// The routes to what a user has saved: `ListAllShowsURI`, `AddShowURI`, `DeleteShowURI` and `DeleteSavedURI`.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/url/URLQueryItem.h>
#include <VanticRestKit/trelvo/Common/RouteValues.h>

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
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

/// Saves a show.
struct AddShowURI {
    struct Arguments {
        Required<std::string> uid;
        Required<SourceSystem> source;
        Required<std::optional<TrelvoSlug>> slug;
        Required<std::int64_t> showId;
    };
    explicit AddShowURI(Arguments arguments)
        : uid(std::move(arguments.uid).value()),
          source(arguments.source.value()),
          slug(arguments.slug.value()),
          id(arguments.showId.value()) {}

    std::string uid;
    SourceSystem source;
    std::optional<TrelvoSlug> slug;
    /// The id of the show.
    std::int64_t id;
    std::string httpMethod = "POST";

    std::string path() const {
        return slug ? "v2/saved/" + std::string(rawValue(*slug)) + "/show/" + std::to_string(id) : "v2/saved";
    }
    std::vector<URLQueryItem> queryItems() const {
        return {{"UID", uid}, {"raw", "1"}, {"source", std::string(rawValue(source))}};
    }

    friend bool operator==(const AddShowURI&, const AddShowURI&) = default;
};

/// Takes a saved show off the list.
struct DeleteShowURI {
    struct Arguments {
        Required<std::string> uid;
        Required<SourceSystem> source;
        Required<TrelvoSlug> slug;
        Required<std::int64_t> showId;
    };
    explicit DeleteShowURI(Arguments arguments)
        : uid(std::move(arguments.uid).value()),
          source(arguments.source.value()),
          slug(arguments.slug.value()),
          id(arguments.showId.value()) {}

    std::string uid;
    SourceSystem source;
    TrelvoSlug slug;
    /// The id of the show.
    std::int64_t id;
    std::string httpMethod = "DELETE";

    std::string path() const {
        return "v2/saved/" + std::string(rawValue(slug)) + "/show/" + std::to_string(id);
    }
    std::vector<URLQueryItem> queryItems() const {
        return {{"UID", uid}, {"source", std::string(rawValue(source))}};
    }

    friend bool operator==(const DeleteShowURI&, const DeleteShowURI&) = default;
};

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
