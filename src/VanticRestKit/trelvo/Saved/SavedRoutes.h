#pragma once

/// \file
/// The routes to the saved items of a user: `ListAllShowsURI`, `AddShowURI`, `DeleteShowURI` and `DeleteSavedURI`.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/url/URLQueryItem.h>
#include <VanticRestKit/trelvo/Common/RouteValues.h>

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit {

/// The shows that a user has saved.
struct ListAllShowsURI {
    /// The id of the user.
    std::string uid{};
    /// The calling source.
    SourceSystem source{};
    /// The list; empty for all lists.
    std::optional<TrelvoSlug> slug{};

    /// The path below the base URL.
    std::string path() const {
        return slug ? "v2/saved/" + std::string(rawValue(*slug)) + "/show" : "v2/saved";
    }
    /// The query items, in order.
    std::vector<URLQueryItem> queryItems() const {
        return {{"UID", uid}, {"raw", "1"}, {"source", std::string(rawValue(source))}};
    }

    friend bool operator==(const ListAllShowsURI&, const ListAllShowsURI&) = default;
};

/// Saves a show.
struct AddShowURI {
    /// The arguments of the constructor.
    struct Arguments {
        /// The id of the user.
        Required<std::string> uid;
        /// The calling source.
        Required<SourceSystem> source;
        /// The list; empty for all lists.
        Required<std::optional<TrelvoSlug>> slug;
        /// The id of the show.
        Required<std::int64_t> showId;
    };
    /// Creates the route from its arguments.
    explicit AddShowURI(Arguments arguments)
        : uid(std::move(arguments.uid).value()),
          source(arguments.source.value()),
          slug(arguments.slug.value()),
          id(arguments.showId.value()) {}

    /// The id of the user.
    std::string uid;
    /// The calling source.
    SourceSystem source;
    /// The list; empty for all lists.
    std::optional<TrelvoSlug> slug;
    /// The id of the show.
    std::int64_t id;
    /// The method of the request.
    std::string httpMethod = "POST";

    /// The path below the base URL.
    std::string path() const {
        return slug ? "v2/saved/" + std::string(rawValue(*slug)) + "/show/" + std::to_string(id) : "v2/saved";
    }
    /// The query items, in order.
    std::vector<URLQueryItem> queryItems() const {
        return {{"UID", uid}, {"raw", "1"}, {"source", std::string(rawValue(source))}};
    }

    friend bool operator==(const AddShowURI&, const AddShowURI&) = default;
};

/// Removes a saved show.
struct DeleteShowURI {
    /// The arguments of the constructor.
    struct Arguments {
        /// The id of the user.
        Required<std::string> uid;
        /// The calling source.
        Required<SourceSystem> source;
        /// The slug of the list.
        Required<TrelvoSlug> slug;
        /// The id of the show.
        Required<std::int64_t> showId;
    };
    /// Creates the route from its arguments.
    explicit DeleteShowURI(Arguments arguments)
        : uid(std::move(arguments.uid).value()),
          source(arguments.source.value()),
          slug(arguments.slug.value()),
          id(arguments.showId.value()) {}

    /// The id of the user.
    std::string uid;
    /// The calling source.
    SourceSystem source;
    /// The slug of the list.
    TrelvoSlug slug;
    /// The id of the show.
    std::int64_t id;
    /// The method of the request.
    std::string httpMethod = "DELETE";

    /// The path below the base URL.
    std::string path() const {
        return "v2/saved/" + std::string(rawValue(slug)) + "/show/" + std::to_string(id);
    }
    /// The query items, in order.
    std::vector<URLQueryItem> queryItems() const {
        return {{"UID", uid}, {"source", std::string(rawValue(source))}};
    }

    friend bool operator==(const DeleteShowURI&, const DeleteShowURI&) = default;
};

/// Deletes all saved items of a user.
struct DeleteSavedURI {
    /// The id of the user.
    std::string uid{};
    /// The calling source.
    SourceSystem source{};
    /// The list; empty for all lists.
    std::optional<TrelvoSlug> slug{};
    /// The method of the request.
    std::string httpMethod = "DELETE";

    /// The path below the base URL.
    std::string path() const { return slug ? "v2/saved/" + std::string(rawValue(*slug)) : "v2/saved"; }
    /// The query items, in order.
    std::vector<URLQueryItem> queryItems() const {
        return {{"UID", uid}, {"source", std::string(rawValue(source))}};
    }

    friend bool operator==(const DeleteSavedURI&, const DeleteSavedURI&) = default;
};

}  // namespace VanticRestKit
