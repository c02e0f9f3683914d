#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/MixedCollection/MixedCollection.h>
#include <VanticRestKit/lumeno/MixedCollection/MixedCollectionRoutes.h>

namespace VanticRestKit {

std::optional<VanticRestKit::Resource<VanticRestKit::MixedCollection>> Endpoint::Collection(
    CollectionArguments arguments, const Context& context) {
    const CollectionURI route({.with = std::move(arguments.collectionId),
                               .embedHighlightItem = std::move(arguments.embedHighlightItem)});
    return VanticRestKit::Resource<VanticRestKit::MixedCollection>::make({.with = route}, context);
}

template <class>
std::optional<VanticRestKit::Resource<VanticRestKit::MixedCollection>> Endpoint::Collection(
    CollectionShortArguments arguments, const Context& context) {
    return Collection(
        CollectionArguments{.collectionId = std::move(arguments.collectionId), .embedHighlightItem = false},
        context);
}
template std::optional<VanticRestKit::Resource<VanticRestKit::MixedCollection>> Endpoint::Collection<void>(
    CollectionShortArguments, const Context&);

}  // namespace VanticRestKit
