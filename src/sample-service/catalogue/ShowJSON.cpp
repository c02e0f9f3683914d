#include "catalogue/ShowJSON.h"

#include "catalogue/Addresses.h"
#include "catalogue/Tables.h"
#include "catalogue/VideoJSON.h"

#include <cstdio>

namespace VanticRestKit::sample {

namespace {

// Derived from the id, so that shows differ and are the same at every start.
bool each(const Show& show, unsigned nth) { return show.id % nth == 0; }
bool isBlocked(const Show& show) { return show.slug == "midnight-weighbridge"; }

std::string updatedOf(const Show& show) {
    char text[32];
    std::snprintf(text, sizeof text, "2026-%02u-%02u 18:30:00", 1 + show.id % 9, 1 + show.id % 28);
    return text;
}

void addPictures(const Show& show, JSON& json) {
    const std::string name = "show/" + show.slug;
    json["thumbnail"] = pictureOf(name, "landscape");
    json["thumbnails"] = thumbnailsOf(name, show.category);
    if (each(show, 3)) {
        json["banner"] = {{"large", pictureOf(name, "banner")},
                          {"small", pictureOf(name, "banner-small")},
                          {"altText", show.title},
                          {"link", hrefOf(show)}};
    }
}

void addTexts(const Show& show, JSON& json) {
    json["title"] = show.title;
    json["displayTitle"] = show.title;
    if (each(show, 4)) json["kickerTitle"] = "New this week";
    json["description"] = show.description;
    if (each(show, 5)) json["status"] = {{"title", "New series"}, {"theme", "default"}};
    json["captions"] = hasCaptions(show);
    json["theme"] = rowOf(channels(), show.channel)->theme;
    json["phrases"] = {{"channel", {show.channel}}, {"genre", {show.category}}, {"theme", show.tags}};
    if (!show.series.empty()) {
        json["episodeCount"] = show.catalogue->videosOf(show).size();
        json["broadcastInfo"] = each(show, 2) ? "Thursdays at 8.30" : "Sundays at 7.00";
    }
}

void addLinksOut(const Show& show, JSON& json) {
    if (each(show, 4)) {
        json["socialLinks"] = {
            {"title", "Follow " + show.title},
            {"items",
             JSON::array(
                 {{{"id", "wall"}, {"title", "The wall"}, {"href", "https://wall.example/" + show.slug}}})}};
    }
    json["relatedLinks"] = JSON::array();
    if (each(show, 3)) {
        json["relatedLinks"].push_back(
            {{"title", "About " + show.title}, {"href", "https://vantic.example/about/" + show.slug}});
    }
    json["shareUrl"] = "https://vantic.example" + hrefOf(show);
    if (show.type == "feature") json["buy"] = {{"appleITMS", "itms://vantic.example/" + show.slug}};
}

void addLinks(const Show& show, JSON& json) {
    JSON links;
    links["self"] = linkTo(hrefOf(show));
    links["deeplink"] = linkTo(hrefOf(show));
    links["categories"] = categoryLinksOf(show);
    if (const auto alert = alertShownAt(show.slug); !alert.empty()) {
        links["alert"] = {{"id", alert}, {"href", "/alert/" + alert}};
    }
    if (!isBlocked(show)) {
        const Video& first = *show.catalogue->videosOf(show).front();
        links["highlightVideo"] = {{"id", std::to_string(first.id)},
                                   {"href", hrefOf(first)},
                                   {"playTitle", first.episode > 0 ? "Play the first episode" : "Play"}};
    }
    json["_links"] = std::move(links);
}

void addExtras(const Show& show, const ShowExtras& extras, JSON& json) {
    JSON embedded = JSON::object();
    if (extras.highlightVideo != nullptr) embedded["highlightVideo"] = videoJSON(*extras.highlightVideo);
    if (extras.selectedSeries != nullptr)
        embedded["selectedSeries"] = seriesJSON(*extras.selectedSeries, true);
    if (extras.seriesList) {
        embedded["seriesList"] = JSON::array();
        for (const Series* series : show.catalogue->seriesOf(show)) {
            embedded["seriesList"].push_back(seriesJSON(*series, false));
        }
        embedded["videoExtras"] = JSON::array();
        for (const Video* extra : show.catalogue->extrasOf(show)) {
            embedded["videoExtras"].push_back(videoSummaryJSON(*extra));
        }
    }
    if (!embedded.empty()) json["_embedded"] = std::move(embedded);
}

}  // namespace

bool hasCaptions(const Show& show) { return !each(show, 10); }

JSON showJSON(const Show& show, const ShowExtras& extras) {
    JSON json;
    json["_entity"] = "show";
    json["id"] = show.id;
    json["slug"] = show.slug;
    json["type"] = show.type == "episode" ? "series" : show.type;
    json["channel"] = show.channel;
    json["channelTitle"] = rowOf(channels(), show.channel)->title;
    addTexts(show, json);
    addPictures(show, json);
    addLinksOut(show, json);
    json["participants"] = JSON::array({{{"title", show.participantsTitle}, {"list", show.participants}}});
    if (!isBlocked(show)) json["updated"] = updatedOf(show);
    json["classification"] = show.classification;
    json["tags"] = show.tags;
    if (show.series.empty()) {
        const JSON video = videoJSON(*show.catalogue->videosOf(show).front());
        for (const char* key : {"duration", "displayDuration", "displayDurationAccessible"}) {
            if (video.contains(key)) json[key] = video[key];
        }
    }
    if (isBlocked(show)) {
        json["unavailableMessage"] = "From next month.";
        json["data"] = {
            {"blockout", {{"title", "Not yet"}, {"message", "The cinemas have it until next month."}}}};
    }
    addLinks(show, json);
    addExtras(show, extras, json);
    return json;
}

}  // namespace VanticRestKit::sample
