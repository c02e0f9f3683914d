#include "catalogue/Addresses.h"
#include "catalogue/ShowJSON.h"
#include "catalogue/Tables.h"
#include "catalogue/VideoJSON.h"

namespace VanticRestKit::sample {

namespace {

JSON linksOf(const Series& series) {
    const Video& first = *series.episodes.front();
    JSON links;
    links["self"] = linkTo(hrefOf(series));
    links["deeplink"] = linkTo(hrefOf(*series.show) + hrefOf(series));
    links["show"] = {{"id", series.show->id}, {"href", hrefOf(*series.show)}};
    links["highlightVideo"] = {
        {"id", std::to_string(first.id)}, {"href", hrefOf(first)}, {"playTitle", "Play from the start"}};
    return links;
}

JSON episodesOf(const Series& series) {
    JSON embedded{{"videoEpisodes", JSON::array()}, {"videoExtras", JSON::array()}};
    for (const Video* episode : series.episodes)
        embedded["videoEpisodes"].push_back(videoSummaryJSON(*episode));
    for (const Video* extra : series.show->catalogue->extrasOf(*series.show)) {
        embedded["videoExtras"].push_back(videoSummaryJSON(*extra));
    }
    embedded["highlightVideo"] = videoSummaryJSON(*series.episodes.front());
    return embedded;
}

}  // namespace

JSON seriesJSON(const Series& series, bool withEpisodes) {
    const Show& show = *series.show;
    const std::string number = std::to_string(series.number);
    JSON json;
    json["_entity"] = "series";
    json["id"] = std::to_string(series.id);
    json["title"] = "Series " + number;
    if (series.number > 1) json["kickerTitle"] = "It goes on";
    json["showTitle"] = show.title;
    json["displayTitle"] = show.title;
    json["displaySubtitle"] =
        "Series " + number + ", " + std::to_string(series.episodes.size()) + " episodes";
    json["description"] = show.description;
    json["thumbnail"] = pictureOf("series/" + std::to_string(series.id), "landscape");
    json["episodeCount"] = series.episodes.size();
    json["participants"] = JSON::array({{{"title", show.participantsTitle}, {"list", show.participants}}});
    json["shareUrl"] = "https://vantic.example" + hrefOf(show) + hrefOf(series);
    json["classification"] = show.classification;
    json["tags"] = show.tags;
    json["channel"] = show.channel;
    json["channelTitle"] = rowOf(channels(), show.channel)->title;
    if (!show.catalogue->extrasOf(show).empty()) json["extrasTitle"] = "Trailers";
    json["_links"] = linksOf(series);
    if (withEpisodes) json["_embedded"] = episodesOf(series);
    return json;
}

}  // namespace VanticRestKit::sample
