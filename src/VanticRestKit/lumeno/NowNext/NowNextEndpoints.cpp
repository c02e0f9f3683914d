#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/NowNext/NowNext.h>
#include <VanticRestKit/lumeno/NowNext/NowNextRoutes.h>
#include <VanticRestKit/lumeno/Video/VideoList.h>

namespace VanticRestKit {

std::optional<VanticRestKit::Resource<VanticRestKit::NowNext>> Endpoint::NowNext(NowNextArguments arguments,
                                                                                 const Context& context) {
    const NowNextURI route{.houseNumber = std::move(arguments.houseNumber).value()};
    return VanticRestKit::Resource<VanticRestKit::NowNext>::make({.with = route}, context);
}

std::optional<VanticRestKit::Resource<VanticRestKit::VideoList>> Endpoint::Livestreams(
    LivestreamsArguments arguments, const Context& context) {
    const LivestreamsURI route{.region = arguments.region.value()};
    return VanticRestKit::Resource<VanticRestKit::VideoList>::make({.with = route}, context);
}

}  // namespace VanticRestKit
