#pragma once

/// \file
/// `URLBuilder`: builds a request.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/http/URLRequest.h>
#include <VanticRestKit/platform/url/URL.h>
#include <VanticRestKit/platform/url/URLQueryItem.h>
#include <VanticRestKit/Visibility.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// Builds a request from its parts.
struct VRK_EXPORT URLBuilder {
    /// The arguments, by label.
    struct Arguments {
        /// What the path is appended to. Its query comes first.
        Required<URL> usingBaseUrl;
        /// One string whose slashes separate segments. If empty, the base URL is used unchanged.
        Required<std::string> pathComponents;
        /// The query items, in order.
        Required<std::vector<URLQueryItem>> queries;
        /// The headers.
        Required<std::map<std::string, std::string>> HTTPHeaders;
        /// Empty means GET, even with a body.
        Required<std::optional<std::string>> httpMethod;
        /// The body; empty for none.
        Required<std::optional<Data>> andPostData;
        /// In seconds.
        double timeOut = 30.0;
    };

    /// The request, attributed to the user, with the default cache policy and only the given headers. Empty if base,
    /// path and queries do not form a URL. Any thread.
    static std::optional<URLRequest> urlrequest(Arguments arguments);
};

}  // namespace VanticRestKit
