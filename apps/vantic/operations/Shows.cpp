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
         "a show by its slug or id",
         {required("showSlugOrId", "SLUG", "the slug or the id of the show"),
          optional("selectedSeries", "N", "the series to select"),
          optional("selectedVideo", "NUMBER", "the house number of the video to select"),
          flag("embedSeries", "embeds the selected series and the list of series"),
          optional("channel", "CHANNEL", "the slug of a channel")},
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
         "a show by its href",
         {required("usingHref", "HREF", "its href in another document")},
         [](Given given, In host) {
             return loadable(Endpoint::Show({.usingHref = given.text("usingHref")}, host));
         }},
        {"Shows",
         "several shows by their slugs or ids",
         {repeated("showSlugsOrIds", "SLUG", "the slug or the id of one of the shows")},
         [](Given given, In host) {
             return loadable(Endpoint::Shows({.showSlugsOrIds = given.texts("showSlugsOrIds")}, host));
         }},
        {"Series",
         "a series with its episodes, by its href",
         {required("usingHref", "HREF", "its href in another document")},
         [](Given given, In host) {
             return loadable(Endpoint::Series({.usingHref = given.text("usingHref")}, host));
         }},
        {"ShowsList",
         "the index of all shows",
         {optional("channel", "CHANNEL", "the slug of a channel"),
          flag("closedCaptionOnly", "only shows with closed captions")},
         [](Given given, In host) {
             return loadable(Endpoint::ShowsList({.channel = given.optionalText("channel"),
                                                  .closedCaptionOnly = given.flag("closedCaptionOnly")},
                                                 host));
         }},
        {"RelatedShows",
         "shows that are similar to a show",
         {required("showSlug", "SLUG", "the slug of the show"),
          optional("channel", "CHANNEL", "the slug of a channel")},
         [](Given given, In host) {
             return loadable(Endpoint::RelatedShows(
                 {.showSlug = given.text("showSlug"), .channel = given.optionalText("channel")}, host));
         }},
        {"Search",
         "the shows that match a keyword",
         {required("keyword", "TEXT", "what to search for"),
          optional("channel", "CHANNEL", "the slug of a channel")},
         [](Given given, In host) {
             return loadable(Endpoint::Search(
                 {.keyword = given.text("keyword"), .channel = given.optionalText("channel")}, host));
         }},
    };
}

}  // namespace vantic
