#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Link/LinkRoutes.h>
#include <VanticRestKit/lumeno/Show/Show.h>
#include <VanticRestKit/lumeno/Show/ShowRoutes.h>
#include <VanticRestKit/lumeno/Show/ShowsIndex.h>

namespace VanticRestKit {

std::optional<VanticRestKit::Resource<VanticRestKit::Show>> Endpoint::Show(ShowArguments arguments,
                                                                           const Context& context) {
    const ShowURI route({.showSlugOrId = std::move(arguments.showSlugOrId),
                         .series = std::move(arguments.selectedSeries),
                         .videoHouseNumber = std::move(arguments.selectedVideo),
                         .embedSeries = std::move(arguments.embedSeries),
                         .channel = std::move(arguments.channel)});
    return VanticRestKit::Resource<VanticRestKit::Show>::make({.with = route}, context);
}

std::optional<VanticRestKit::Resource<VanticRestKit::Show>> Endpoint::Show(ShowHrefArguments arguments,
                                                                           const Context& context) {
    const lumenoHrefURI route({.withHref = std::move(arguments.usingHref)});
    return VanticRestKit::Resource<VanticRestKit::Show>::make({.with = route}, context);
}

std::optional<VanticRestKit::Resource<std::vector<VanticRestKit::Show>>> Endpoint::Shows(
    ShowsArguments arguments, const Context& context) {
    const ShowsURI route{.showSlugsOrIds = std::move(arguments.showSlugsOrIds).value()};
    return VanticRestKit::Resource<std::vector<VanticRestKit::Show>>::make({.with = route}, context);
}

std::optional<VanticRestKit::Resource<VanticRestKit::ShowsIndex>> Endpoint::ShowsList(
    ShowsListArguments arguments, const Context& context) {
    const ShowsIndexURI route({.closedCaptionOnly = std::move(arguments.closedCaptionOnly),
                               .channel = std::move(arguments.channel)});
    return VanticRestKit::Resource<VanticRestKit::ShowsIndex>::make({.with = route}, context);
}

template <class>
std::optional<VanticRestKit::Resource<VanticRestKit::Show>> Endpoint::Show(ShowShortArguments arguments,
                                                                           const Context& context) {
    return Show(ShowArguments{.showSlugOrId = std::move(arguments.showSlugOrId),
                              .selectedSeries = arguments.selectedSeries.value(),
                              .selectedVideo = std::move(arguments.selectedVideo),
                              .embedSeries = arguments.embedSeries,
                              .channel = std::move(arguments.channel)},
                context);
}
template std::optional<VanticRestKit::Resource<VanticRestKit::Show>> Endpoint::Show<void>(ShowShortArguments,
                                                                                          const Context&);

template <class>
std::optional<VanticRestKit::Resource<VanticRestKit::ShowsIndex>> Endpoint::ShowsList(
    ShowsListShortArguments arguments, const Context& context) {
    return ShowsList(ShowsListArguments{.channel = std::move(arguments.channel),
                                        .closedCaptionOnly = arguments.closedCaptionOnly},
                     context);
}
template std::optional<VanticRestKit::Resource<VanticRestKit::ShowsIndex>> Endpoint::ShowsList<void>(
    ShowsListShortArguments, const Context&);

}  // namespace VanticRestKit
