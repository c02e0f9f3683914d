#include "catalogue/VideoJSON.h"

#include <cstdio>

#include "catalogue/Addresses.h"
#include "catalogue/Tables.h"

namespace VanticRestKit::sample {

namespace {

// Derived from the position, so that videos differ and are the same at every start.
bool each(const Video& video, unsigned nth) { return video.id % nth == 0; }

bool isEpisode(const Video& video) { return video.episode > 0; }
bool isLive(const Video& video) { return video.show->type == "livestream"; }
bool isPlayable(const Video& video) { return isLive(video) || !each(video, 7); }

std::string titleOf(const Channel* channel) { return channel != nullptr ? channel->title : ""; }

std::string date(unsigned year, const Video& video, const char* time) {
    char text[32];
    std::snprintf(text, sizeof text, "%04u-%02u-%02u %s", year % 10000, 1 + video.id % 12, 1 + video.id % 28,
                  time);
    return text;
}

std::string displayDuration(unsigned seconds) {
    const unsigned minutes = (seconds + 30) / 60;
    if (minutes < 60) return std::to_string(minutes) + "m";
    return std::to_string(minutes / 60) + "h " + std::to_string(minutes % 60) + "m";
}

std::string accessibleDuration(unsigned seconds) {
    const unsigned minutes = (seconds + 30) / 60;
    if (minutes < 60) return std::to_string(minutes) + " minutes";
    return std::to_string(minutes / 60) + " hours " + std::to_string(minutes % 60) + " minutes";
}

void addTitles(const Video& video, JSON& json) {
    const Show& show = *video.show;
    json["type"] = show.type;
    json["title"] = video.title;
    json["showTitle"] = show.title;
    json["displayTitle"] = show.title;
    if (isEpisode(video)) {
        const auto series = std::to_string(video.series);
        const auto episode = std::to_string(video.episode);
        json["seriesTitle"] = "Series " + series;
        json["displaySubtitle"] = "S" + series + " E" + episode + " \u2013 " + video.title;
    } else {
        json["displaySubtitle"] = show.description;
    }
    if (each(video, 4)) json["kickerTitle"] = "New this week";
    if (each(video, 5)) json["highlightTitle"] = "The editors' pick: " + video.title;
}

void addImages(const Video& video, JSON& json) {
    const std::string name = "video/" + video.houseNumber;
    json["thumbnail"] = pictureOf(name, "landscape");
    json["thumbnails"] = thumbnailsOf(name, video.show->category);
    if (isEpisode(video)) json["thumbnails"]["episodePortrait"] = pictureOf(name, "episode-portrait");
}

void addTimes(const Video& video, JSON& json) {
    json["pubDate"] = date(2023 + video.series, video, "18:30:00");
    if (!isLive(video)) json["expireDate"] = date(2029, video, "23:59:59");
    const unsigned seconds = durationOf(video);
    if (seconds == 0) return;
    json["duration"] = seconds;
    json["displayDuration"] = displayDuration(seconds);
    json["displayDurationAccessible"] = accessibleDuration(seconds);
    json["nextVideoCuepoint"] = seconds - 20;
    json["doneCuePoint"] = seconds - seconds / 20;
}

void addPlayability(const Video& video, JSON& json) {
    json["playable"] = isPlayable(video);
    if (!isPlayable(video)) {
        json["playableMessage"] = "Not available in your region";
        json["unavailableMessage"] = "This programme can be watched again from next month.";
    }
    json["availability"] =
        isLive(video) ? "Live now" : "Expires in " + std::to_string(3 + video.id % 25) + " days";
    if (isLive(video)) {
        json["status"] = {{"title", "LIVE"}, {"theme", "live"}};
    } else if (each(video, 4)) {
        json["status"] = {{"title", "New"}, {"theme", "default"}};
    }
}

void addLinks(const Video& video, JSON& json) {
    JSON links;
    links["self"] = linkTo(hrefOf(video));
    links["deeplink"] = {{"id", video.houseNumber},
                         {"href", hrefOf(*video.show) + "/video/" + video.houseNumber}};
    links["show"] = {{"id", video.show->id}, {"href", hrefOf(*video.show)}};
    if (isEpisode(video)) {
        const auto id = std::to_string(video.show->id * 10 + video.series);
        links["series"] = {{"id", id}, {"href", "/series/" + id}};
    }
    if (video.next != nullptr) {
        links["nextEpisode"] = {{"href", hrefOf(*video.next)},
                                {"title", video.next->title},
                                {"seriesTitle", "Series " + std::to_string(video.next->series)}};
    }
    links["categories"] = categoryLinksOf(*video.show);
    links["variations"] = JSON::array();
    if (each(video, 6)) {
        links["variations"].push_back({{"title", "With audio description"},
                                       {"href", hrefOf(video) + "AD"},
                                       {"tags", {"audio-description"}}});
    }
    if (isPlayable(video)) {
        links["highlightVideo"] = {{"id", std::to_string(video.id)},
                                   {"href", hrefOf(video)},
                                   {"playTitle", isLive(video) ? "Watch live" : "Play"}};
    }
    json["_links"] = std::move(links);
}

}  // namespace

unsigned durationOf(const Video& video) {
    if (isLive(video)) return 0;
    if (video.show->type == "trailer") return 126;
    if (video.show->type == "feature") return 5'700 + video.id % 1'800;
    return video.show->category == "children" ? 660 + video.id % 90 : 1'620 + video.id % 1'500;
}

JSON categoryLinksOf(const Show& show) {
    const Category& category = *rowOf(categories(), show.category);
    return JSON::array({{{"id", category.id},
                         {"title", category.title},
                         {"href", "/category/" + category.id},
                         {"tags", {"genre"}}}});
}

JSON videoJSON(const Video& video) {
    const Show& show = *video.show;
    JSON json;
    json["_entity"] = "video";
    json["id"] = std::to_string(video.id);
    json["houseNumber"] = video.houseNumber;
    json["channel"] = show.channel;
    json["channelTitle"] = titleOf(rowOf(channels(), show.channel));
    addTitles(video, json);
    addImages(video, json);
    addTimes(video, json);
    json["format"] = each(video, 3) ? "HD" : "SD";
    json["classification"] = show.classification;
    json["description"] = isEpisode(video) ? video.title + ". " + show.description : show.description;
    json["captions"] = !each(video, 9);
    json["captionsOnAkamai"] = each(video, 2);
    addPlayability(video, json);
    json["relatedLinks"] = JSON::array();
    if (each(video, 5)) {
        json["relatedLinks"].push_back({{"id", "about"},
                                        {"title", "About " + show.title},
                                        {"href", "https://vantic.example/about/" + show.slug}});
    }
    json["participants"] = JSON::array({{{"title", show.participantsTitle}, {"list", show.participants}}});
    json["analytics"] = analyticsJSON(video);
    json["shareUrl"] = "https://vantic.example" + hrefOf(*video.show) + "/video/" + video.houseNumber;
    json["tags"] = show.tags;
    addLinks(video, json);
    if (isPlayable(video)) json["_embedded"] = {{"playlist", playlistJSON(video)}};
    return json;
}

JSON videoSummaryJSON(const Video& video) {
    JSON json = videoJSON(video);
    json.erase("analytics");
    json.erase("_embedded");
    return json;
}

}  // namespace VanticRestKit::sample
