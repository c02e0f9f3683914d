#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/ProductAlert/ProductAlert.h>
#include <VanticRestKit/lumeno/ProductAlert/ProductAlertRoutes.h>

namespace VanticRestKit {

std::optional<VanticRestKit::Resource<VanticRestKit::ProductAlert>> Endpoint::ProductAlert(
    ProductAlertArguments arguments, const Context& context) {
    const ProductAlertURI route({.with = std::move(arguments.alertId)});
    return VanticRestKit::Resource<VanticRestKit::ProductAlert>::make({.with = route}, context);
}

}  // namespace VanticRestKit
