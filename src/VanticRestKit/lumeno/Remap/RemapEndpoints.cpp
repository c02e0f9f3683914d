#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Remap/Remap.h>
#include <VanticRestKit/lumeno/Remap/RemapRoutes.h>

namespace VanticRestKit {

std::optional<VanticRestKit::Resource<VanticRestKit::Remap>> Endpoint::Remap(RemapArguments arguments,
                                                                             const Context& context) {
    const RemapURI route({.path = std::move(arguments.path), .queryItems = std::move(arguments.queryItems)});
    return VanticRestKit::Resource<VanticRestKit::Remap>::make({.with = route}, context);
}

template <class>
std::optional<VanticRestKit::Resource<VanticRestKit::Remap>> Endpoint::Remap(RemapShortArguments arguments,
                                                                             const Context& context) {
    return Remap(RemapArguments{.path = std::move(arguments.path), .queryItems = std::vector<URLQueryItem>{}},
                 context);
}
template std::optional<VanticRestKit::Resource<VanticRestKit::Remap>> Endpoint::Remap<void>(
    RemapShortArguments, const Context&);

}  // namespace VanticRestKit
