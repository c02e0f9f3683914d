#pragma once

/// \file
/// `Endpoint::Resource`: loads a path that came from the catalogue service as any type that decodes.

#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Link/LinkRoutes.h>

#include <optional>
#include <utility>

namespace VanticRestKit {

template <class T>
std::optional<Resource<T>> Endpoint::Resource(ResourceArguments arguments, const Context& using_) {
    const lumenoHrefURI route({.withHref = std::move(arguments.withHref)});
    return VanticRestKit::Resource<T>::make({.with = route}, using_);
}

}  // namespace VanticRestKit
