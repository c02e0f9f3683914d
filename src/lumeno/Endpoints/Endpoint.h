#pragma once

/// \file
/// `Endpoint`: where a host gets the resources of the catalogue.

#include <VanticRestKit/Visibility.h>

#include <optional>

namespace VanticRestKit {

class Context;
template <class T>
class Resource;

/// The resources of the catalogue, one function for each route.
///
/// A function builds the request from its arguments and the context and does no I/O; `load` on the resource
/// does. It returns nothing exactly where the context can make no URL of the route, with no reason given. Any
/// thread. The context is read during the call only.
///
/// This header only names the entities: include the header of the entity and `Core/Resource.h` to use one.
struct VRK_EXPORT Endpoint {
    /// The time of the service: its answer is a bare number.
    static std::optional<VanticRestKit::Resource<double>> Time(const VanticRestKit::Context& context);
};

}  // namespace VanticRestKit
