#pragma once

/// \file
/// `AddShowURI`: the route that saves a show.

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

}  // namespace VanticRestKit
