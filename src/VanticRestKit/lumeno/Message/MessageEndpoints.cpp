#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Message/Message.h>
#include <VanticRestKit/lumeno/Message/MessageRoutes.h>

namespace VanticRestKit {

std::optional<VanticRestKit::Resource<std::vector<VanticRestKit::Message>>> Endpoint::Messages(
    MessagesArguments arguments, const Context& context) {
    const MessagesURI route{.appId = arguments.appId.value(), .loggedIn = arguments.loggedIn.value()};
    return VanticRestKit::Resource<std::vector<VanticRestKit::Message>>::make({.with = route}, context);
}

}  // namespace VanticRestKit
