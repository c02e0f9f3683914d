#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Search/RelatedShowList.h>
#include <VanticRestKit/lumeno/Search/SearchResults.h>
#include <VanticRestKit/lumeno/Series/Series.h>
#include <VanticRestKit/lumeno/Show/Show.h>
#include <VanticRestKit/lumeno/Show/ShowsIndex.h>

#include "arguments/Values.h"
#include "operations/Operation.h"

namespace vantic {

using VanticRestKit::Endpoint;

std::vector<Operation> showOperations() {
    using Given = const Arguments&;
    using In = const Host&;
    return {
        {"Show",
         {required("showSlugOrId"), optional("selectedSeries"), optional("selectedVideo"),
          flag("embedSeries"), optional("channel")},
         [](Given given, In host) {
             return loadable(
                 Endpoint::Show({.showSlugOrId = given.text("showSlugOrId"),
                                 .selectedSeries = given.optionally("selectedSeries", readUnsigned),
                                 .selectedVideo = given.optionalText("selectedVideo"),
                                 .embedSeries = given.flag("embedSeries"),
                                 .channel = given.optionalText("channel")},
                                host));
         }},
        {"Show",
         {required("usingHref")},
         [](Given given, In host) {
             return loadable(Endpoint::Show({.usingHref = given.text("usingHref")}, host));
         }},
        {"Shows",
         {repeated("showSlugsOrIds")},
         [](Given given, In host) {
             return loadable(Endpoint::Shows({.showSlugsOrIds = given.texts("showSlugsOrIds")}, host));
         }},
        {"Series",
         {required("usingHref")},
         [](Given given, In host) {
             return loadable(Endpoint::Series({.usingHref = given.text("usingHref")}, host));
         }},
        {"ShowsList",
         {optional("channel"), flag("closedCaptionOnly")},
         [](Given given, In host) {
             return loadable(Endpoint::ShowsList({.channel = given.optionalText("channel"),
                                                  .closedCaptionOnly = given.flag("closedCaptionOnly")},
                                                 host));
         }},
        {"RelatedShows",
         {required("showSlug"), optional("channel")},
         [](Given given, In host) {
             return loadable(Endpoint::RelatedShows(
                 {.showSlug = given.text("showSlug"), .channel = given.optionalText("channel")}, host));
         }},
        {"Search",
         {required("keyword"), optional("channel")},
         [](Given given, In host) {
             return loadable(Endpoint::Search(
                 {.keyword = given.text("keyword"), .channel = given.optionalText("channel")}, host));
         }},
    };
}

}  // namespace vantic
