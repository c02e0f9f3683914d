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

struct Route {
    Required<ResourceURI> with;
    JSONDecoder andDecoder{};
};
struct RouteAndService {
    Required<ResourceURI> with;
    /// Accepted and ignored.
    Required<std::shared_ptr<Serviceable>> service;
    Required<JSONDecoder> andDecoder;
};
struct Service {
    /// Must not be null.
    Required<std::shared_ptr<Serviceable>> withService;
    Required<JSONDecoder> andDecoder;
};
struct Request {
    Required<URLRequest> withURLRequest;
    Required<JSONDecoder> andDecoder;
};
struct Address {
    Required<URL> withURL;
    Required<JSONDecoder> andDecoder;
};
struct Href {
    Required<HrefURI> withHrefURI;
};
struct HrefAndDecoder {
    Required<HrefURI> withHrefURI;
    Required<JSONDecoder> andDecoder;
};

}  // namespace ResourceArguments

namespace detail {

/// What the context makes of the route. Empty or null where it makes no request.
VRK_EXPORT std::optional<URLRequest> requestFor(const ResourceURI& route, const Context& context);
VRK_EXPORT std::shared_ptr<Serviceable> serviceFor(const ResourceURI& route, const Context& context);

/// What runs `request` for the context, observed if the context is. `attempt` is the number of its first attempt.
VRK_EXPORT std::shared_ptr<Serviceable> serviceFor(URLRequest request, const Context& context,
                                                   std::int64_t attempt = 1);

/// A `NetworkServiceble` on the shared session that reports to nobody.
VRK_EXPORT std::shared_ptr<Serviceable> serviceFor(URLRequest request);
VRK_EXPORT std::shared_ptr<Serviceable> serviceFor(URL url);

}  // namespace detail
}  // namespace VanticRestKit
