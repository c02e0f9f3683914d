#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Link/LinkRoutes.h>
#include <VanticRestKit/lumeno/Series/Series.h>

namespace VanticRestKit {

std::optional<VanticRestKit::Resource<VanticRestKit::Series>> Endpoint::Series(SeriesArguments arguments,
                                                                               const Context& context) {
    const lumenoHrefURI route({.withHref = std::move(arguments.usingHref)});
    return VanticRestKit::Resource<VanticRestKit::Series>::make({.with = route}, context);
}

}  // namespace VanticRestKit
