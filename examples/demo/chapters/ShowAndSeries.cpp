#include "Chapters.h"
#include "Loading.h"
#include "Printing.h"
#include "VideoPrinting.h"

#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Search/RelatedShowList.h>
#include <VanticRestKit/lumeno/Show/Show.h>

#include <optional>
#include <string>

namespace demo {

using namespace VanticRestKit;

namespace {

std::optional<Show> fetchedShow(const Context& context) {
    return fetched(Endpoint::Show({.showSlugOrId = "harbour-lights", .embedSeries = true}, context));
}

void printShow(const Show& show) {
    printField("title", show.title.value_or("Untitled"));
    printField("about", show.description.value_or(""));
    for (const auto& participants : show.participants) {
        printField("with", participants.title.value_or("") + " " + participants.list.value_or(""));
    }
    printField("on", show.channelTitle.value_or("") + ", " + show.broadcastInfo.value_or(""));
    printField("classification", show.classification.value_or(""));
    printField("last changed", textOf(show.updated));
    printField("poster", show.portraitTitledThumbnail.value_or(""));
    for (const auto& series : show.seriesList) {
        printField("series", series.title.value_or("") + ", " +
                                 std::to_string(series.episodeCount.value_or(0)) + " episodes, at " +
                                 series.selfHref.value_or(""));
    }
    for (const auto& extra : show.videoExtras) printField("extra", extra.title.value_or(""));
}

bool showRelated(const Context& context) {
    const auto related = fetched(Endpoint::RelatedShows({.showSlug = "harbour-lights"}, context));
    if (!related) return false;
    std::vector<std::string> titles;
    for (const auto& show : related->items) titles.push_back(show.title.value_or("Untitled"));
    printList("related", titles);
    return titles.size() == 6;
}

/// An episode in a list has no playlist, so the episode itself is loaded.
bool showEpisode(const std::string& href, const Context& context) {
    printHeading("An episode by its link, with its playlist");
    const auto episode = fetched(Endpoint::Video({.usingHref = href}, context));
    if (!episode || !episode->playlist) return false;
    printField("title", episode->title.value_or("Untitled"));
    printPlaylist(*episode->playlist);
    const auto& streams = episode->playlist->back().streams;
    printField("player URL", streams.hls.url({.preferHighest = true}).value_or("none"));
    return streams.hls.url({.preferHighest = true}).has_value();
}

}  // namespace

bool showShowAndSeries(const Stage& stage) {
    printHeading("A show with its series");
    const auto show = fetchedShow(stage.context);
    if (!show || !show->selectedSeries || show->selectedSeries->episodes.size() != 3) return false;
    printShow(*show);
    const bool related = showRelated(stage.context);

    printHeading("The episodes of its latest series");
    printVideos(show->selectedSeries->episodes);
    const auto& episode = show->selectedSeries->episodes[1];
    return showEpisode(episode.selfHref.value_or(""), stage.context) && related &&
           show->seriesList.size() == 2;
}

}  // namespace demo
