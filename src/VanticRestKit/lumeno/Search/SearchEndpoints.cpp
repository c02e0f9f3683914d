#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Search/RelatedShowList.h>
#include <VanticRestKit/lumeno/Search/SearchResults.h>
#include <VanticRestKit/lumeno/Search/SearchRoutes.h>

namespace VanticRestKit {

std::optional<VanticRestKit::Resource<VanticRestKit::RelatedShowList>> Endpoint::RelatedShows(
    RelatedShowsArguments arguments, const Context& context) {
    const RelatedShowsURI route{.showSlug = std::move(arguments.showSlug).value(),
                                .channel = std::move(arguments.channel).value()};
    return VanticRestKit::Resource<VanticRestKit::RelatedShowList>::make({.with = route}, context);
}

std::optional<VanticRestKit::Resource<VanticRestKit::SearchResults>> Endpoint::Search(
    SearchArguments arguments, const Context& context) {
    const SearchURI route({.for_ = std::move(arguments.keyword), .channel = std::move(arguments.channel)});
    return VanticRestKit::Resource<VanticRestKit::SearchResults>::make({.with = route}, context);
}

template <class>
std::optional<VanticRestKit::Resource<VanticRestKit::RelatedShowList>> Endpoint::RelatedShows(
    RelatedShowsShortArguments arguments, const Context& context) {
    return RelatedShows(
        RelatedShowsArguments{.showSlug = std::move(arguments.showSlug), .channel = std::nullopt}, context);
}
template std::optional<VanticRestKit::Resource<VanticRestKit::RelatedShowList>> Endpoint::RelatedShows<void>(
    RelatedShowsShortArguments, const Context&);

template <class>
std::optional<VanticRestKit::Resource<VanticRestKit::SearchResults>> Endpoint::Search(
    SearchShortArguments arguments, const Context& context) {
    return Search(SearchArguments{.keyword = std::move(arguments.keyword), .channel = std::nullopt}, context);
}
template std::optional<VanticRestKit::Resource<VanticRestKit::SearchResults>> Endpoint::Search<void>(
    SearchShortArguments, const Context&);

}  // namespace VanticRestKit
