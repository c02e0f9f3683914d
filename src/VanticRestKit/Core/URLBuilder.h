#pragma once

/// \file
/// `URLBuilder`: puts a request together.

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

/// Puts a request together from its parts.
struct VRK_EXPORT URLBuilder {
    /// The arguments, by label.
    struct Arguments {
        /// What the path is appended to. Its query comes first.
        Required<URL> usingBaseUrl;
        /// One text, whose slashes separate segments. An empty one leaves the base URL as it is.
        Required<std::string> pathComponents;
        /// The query items, in order.
        Required<std::vector<URLQueryItem>> queries;
        /// The headers.
        Required<std::map<std::string, std::string>> HTTPHeaders;
        /// Empty means GET, also where there is a body.
        Required<std::optional<std::string>> httpMethod;
        /// The body; empty for none.
        Required<std::optional<Data>> andPostData;
        /// In seconds.
        double timeOut = 30.0;
    };

    /// The request, attributed to the user, with the default cache policy and no header beyond those given.
    /// Empty where base, path and queries make no URL. Any thread.
    static std::optional<URLRequest> urlrequest(Arguments arguments);
};

}  // namespace VanticRestKit
