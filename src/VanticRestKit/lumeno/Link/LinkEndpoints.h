#pragma once

/// \file
/// `Endpoint::Resource`: loads an href of the catalogue service and decodes it as any type.

#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Link/LinkRoutes.h>

#include <optional>
#include <utility>

namespace VanticRestKit {

/// Defined in a header because `T` may be a type of the host.
template <class T>
std::optional<Resource<T>> Endpoint::Resource(ResourceArguments arguments, const Context& using_) {
    const lumenoHrefURI route({.withHref = std::move(arguments.withHref)});
    return VanticRestKit::Resource<T>::make({.with = route}, using_);
}

}  // namespace VanticRestKit
