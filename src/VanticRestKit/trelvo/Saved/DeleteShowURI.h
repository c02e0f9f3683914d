#pragma once

/// \file
/// `DeleteShowURI`: the route that takes a saved show off the list.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/url/URLQueryItem.h>
#include <VanticRestKit/trelvo/Common/SourceSystem.h>
#include <VanticRestKit/trelvo/Common/TrelvoSlug.h>

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit {

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

}  // namespace VanticRestKit
