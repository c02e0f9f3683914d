#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Categories/Category.h>
#include <VanticRestKit/lumeno/Categories/CategoryRoutes.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>

namespace VanticRestKit {

std::optional<VanticRestKit::Resource<VanticRestKit::Category>> Endpoint::Category(
    CategoryArguments arguments, const Context& context) {
    const CategoryURI route({.for_ = std::move(arguments.category)});
    return VanticRestKit::Resource<VanticRestKit::Category>::make({.with = route}, context);
}

std::optional<VanticRestKit::Resource<VanticRestKit::Category>> Endpoint::Channel(ChannelArguments arguments,
                                                                                  const Context& context) {
    const ChannelURI route({.for_ = std::move(arguments.channel)});
    return VanticRestKit::Resource<VanticRestKit::Category>::make({.with = route}, context);
}

std::optional<VanticRestKit::Resource<VanticRestKit::Category>> Endpoint::Home(const Context& context) {
    const HomeURI route;
    return VanticRestKit::Resource<VanticRestKit::Category>::make({.with = route}, context);
}

}  // namespace VanticRestKit
