#pragma once

/// \file
/// `Endpoint::Resource`: loads a path that came from the catalogue service as any type that decodes.

#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Link/LinkRoutes.h>

#include <optional>
#include <utility>

namespace VanticRestKit {

/// Defined here and not in the library, since `T` may be any type of the host.
template <class T>
std::optional<Resource<T>> Endpoint::Resource(ResourceArguments arguments, const Context& using_) {
    const lumenoHrefURI route({.withHref = std::move(arguments.withHref)});
    return VanticRestKit::Resource<T>::make({.with = route}, using_);
}

}  // namespace VanticRestKit
