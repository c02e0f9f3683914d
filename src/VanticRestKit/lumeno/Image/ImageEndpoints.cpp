#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Image/Image.h>
#include <VanticRestKit/lumeno/Image/ImageRoutes.h>

namespace VanticRestKit {

std::optional<Resource<std::vector<Image>>> Endpoint::Avatars(const Context& context) {
    return VanticRestKit::Resource<std::vector<Image>>::make({.with = AvatarURI{}}, context);
}

}  // namespace VanticRestKit
