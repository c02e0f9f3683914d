#pragma once

/// \file
/// The arguments that a `Resource` is made from. They do not depend on its type.

#include <VanticRestKit/Core/HrefURI.h>
#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/Core/ResourceURI.h>
#include <VanticRestKit/platform/http/URLRequest.h>
#include <VanticRestKit/platform/json/JSONDecoder.h>
#include <VanticRestKit/platform/url/URL.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <memory>
#include <optional>

namespace VanticRestKit {

class Context;
class Serviceable;

namespace ResourceArguments {

/// A route, with the default service of the context.
struct Route {
    /// The route.
    Required<ResourceURI> with;
    /// Decodes the body of the answer.
    JSONDecoder andDecoder{};
};
/// A route and a service.
struct RouteAndService {
    /// The route.
    Required<ResourceURI> with;
    /// Accepted and ignored.
    Required<std::shared_ptr<Serviceable>> service;
    /// Decodes the body of the answer.
    Required<JSONDecoder> andDecoder;
};
/// A service with its own request.
struct Service {
    /// Must not be null.
    Required<std::shared_ptr<Serviceable>> withService;
    /// Decodes the body of the answer.
    Required<JSONDecoder> andDecoder;
};
/// A request.
struct Request {
    /// The request to send.
    Required<URLRequest> withURLRequest;
    /// Decodes the body of the answer.
    Required<JSONDecoder> andDecoder;
};
/// A URL.
struct Address {
    /// The URL to load by a GET.
    Required<URL> withURL;
    /// Decodes the body of the answer.
    Required<JSONDecoder> andDecoder;
};
/// An href from an answer.
struct Href {
    /// The href with its query items.
    Required<HrefURI> withHrefURI;
};
/// An href from an answer, and a decoder.
struct HrefAndDecoder {
    /// The href with its query items.
    Required<HrefURI> withHrefURI;
    /// Decodes the body of the answer.
    Required<JSONDecoder> andDecoder;
};

}  // namespace ResourceArguments

namespace detail {

/// The request and service for a route. Empty or null if the context makes no request.
VRK_EXPORT std::optional<URLRequest> requestFor(const ResourceURI& route, const Context& context);
VRK_EXPORT std::shared_ptr<Serviceable> serviceFor(const ResourceURI& route, const Context& context);

/// The service that runs `request`, observed if the context is. `attempt` is the number of its first attempt.
VRK_EXPORT std::shared_ptr<Serviceable> serviceFor(URLRequest request, const Context& context,
                                                   std::int64_t attempt = 1);

/// A `NetworkServiceble` on the shared session without `logError`.
VRK_EXPORT std::shared_ptr<Serviceable> serviceFor(URLRequest request);
VRK_EXPORT std::shared_ptr<Serviceable> serviceFor(URL url);

}  // namespace detail
}  // namespace VanticRestKit
