#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Link/LinkRoutes.h>
#include <VanticRestKit/lumeno/Video/VideoList.h>
#include <VanticRestKit/lumeno/Video/VideoRoutes.h>

namespace VanticRestKit {

std::optional<VanticRestKit::Resource<VanticRestKit::Video>> Endpoint::Video(VideoArguments arguments,
                                                                             const Context& context) {
    const VideoURI route{.houseNumber = std::move(arguments.houseNumber).value()};
    return VanticRestKit::Resource<VanticRestKit::Video>::make({.with = route}, context);
}

std::optional<VanticRestKit::Resource<VanticRestKit::Video>> Endpoint::Video(VideoHrefArguments arguments,
                                                                             const Context& context) {
    const lumenoHrefURI route({.withHref = std::move(arguments.usingHref)});
    return VanticRestKit::Resource<VanticRestKit::Video>::make({.with = route}, context);
}

std::optional<VanticRestKit::Resource<VideoList>> Endpoint::Videos(VideosArguments arguments,
                                                                   const Context& context) {
    const VideosURI route{.houseNumbers = std::move(arguments.houseNumbers).value()};
    return VanticRestKit::Resource<VideoList>::make({.with = route}, context);
}

}  // namespace VanticRestKit
