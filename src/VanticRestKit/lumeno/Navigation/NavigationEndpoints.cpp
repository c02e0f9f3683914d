#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Navigation/BrowseList.h>
#include <VanticRestKit/lumeno/Navigation/NavigationList.h>
#include <VanticRestKit/lumeno/Navigation/NavigationMainMenuList.h>
#include <VanticRestKit/lumeno/Navigation/NavigationRoutes.h>

namespace VanticRestKit {

std::optional<VanticRestKit::Resource<VanticRestKit::NavigationList>> Endpoint::Navigation(
    NavigationArguments arguments, const Context& context) {
    const NavigationURI route{.navigationType = arguments.type.value()};
    return VanticRestKit::Resource<VanticRestKit::NavigationList>::make({.with = route}, context);
}

std::optional<VanticRestKit::Resource<VanticRestKit::NavigationMainMenuList>>
Endpoint::NavigationMainMenuList(NavigationMainMenuListArguments arguments, const Context& context) {
    const NavigationMainMenuItemURI route({.channels = std::move(arguments.channels)});
    return VanticRestKit::Resource<VanticRestKit::NavigationMainMenuList>::make({.with = route}, context);
}

std::optional<VanticRestKit::Resource<VanticRestKit::BrowseList>> Endpoint::Browse(const Context& context) {
    const BrowseURI route;
    return VanticRestKit::Resource<VanticRestKit::BrowseList>::make({.with = route}, context);
}

}  // namespace VanticRestKit
