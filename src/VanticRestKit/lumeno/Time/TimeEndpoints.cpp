#include <VanticRestKit/Core/Context.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Time/TimeRoutes.h>

namespace VanticRestKit {

std::optional<VanticRestKit::Resource<double>> Endpoint::Time(const VanticRestKit::Context& context) {
    return VanticRestKit::Resource<double>::make({.with = TimeURI{}}, context);
}

}  // namespace VanticRestKit
