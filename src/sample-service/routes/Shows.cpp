#include <algorithm>
#include <map>

#include "catalogue/Search.h"
#include "catalogue/ShowJSON.h"
#include "catalogue/Tables.h"
#include "routes/Table.h"

namespace VanticRestKit::sample {

namespace {

bool isOnChannel(const Show& show, const Request& request) {
    const std::string channel = request.queryValue("channel");
    return channel.empty() || show.channel == channel;
}

JSON listOf(const std::vector<const Show*>& shows) {
    JSON list = JSON::array();
    for (const Show* show : shows) list.push_back(showJSON(*show));
    return list;
}

/// The show with the parts that `embed` requests: the named series, otherwise the last one; the named video, otherwise
/// the first of that series.
Reply showWith(const Request& request, const Show& show, const Series* series, const Video* video) {
    const auto embed = request.queryValues("embed");
    const auto asks = [&](const char* what) {
        return std::find(embed.begin(), embed.end(), what) != embed.end();
    };
    const auto all = catalogue().seriesOf(show);
    if (series == nullptr && !all.empty()) series = video != nullptr ? all[video->series - 1] : all.back();
    if (video == nullptr)
        video = series != nullptr ? series->episodes.front() : catalogue().videosOf(show).front();
    ShowExtras extras;
    if (asks("highlightVideo")) extras.highlightVideo = video;
    if (asks("selectedSeries")) extras.selectedSeries = series;
    extras.seriesList = asks("seriesList");
    return answered(showJSON(show, extras));
}

Reply oneShow(const Request& request, const Captures& captures) {
    const Show* show = catalogue().show(captures[0]);
    if (show == nullptr || !isOnChannel(*show, request))
        return failure(404, "No show is called " + captures[0]);
    return showWith(request, *show, nullptr, nullptr);
}

Reply showWithSeries(const Request& request, const Captures& captures) {
    const Series* series = catalogue().series(captures[1]);
    const Show* show = catalogue().show(captures[0]);
    if (series == nullptr || series->show != show || !isOnChannel(*show, request)) {
        return failure(404, "The show " + captures[0] + " has no series " + captures[1]);
    }
    return showWith(request, *show, series, nullptr);
}

Reply showWithVideo(const Request& request, const Captures& captures) {
    const Video* video = catalogue().video(captures[1]);
    const Show* show = catalogue().show(captures[0]);
    if (video == nullptr || video->show != show || !isOnChannel(*show, request)) {
        return failure(404, "The show " + captures[0] + " has no video " + captures[1]);
    }
    return showWith(request, *show, nullptr, video);
}

// Unknown names are omitted.
Reply severalShows(const Request&, const Captures& captures) {
    std::vector<const Show*> shows;
    for (const auto& name : captures.empty() ? std::vector<std::string>() : split(captures[0], ',')) {
        if (const Show* show = catalogue().show(name)) shows.push_back(show);
    }
    return answered(listOf(shows));
}

Reply oneSeries(const Request&, const Captures& captures) {
    const Series* series = catalogue().series(captures[0]);
    if (series == nullptr) return failure(404, "No series has the id " + captures[0]);
    return answered(seriesJSON(*series, true));
}

std::string_view withoutArticle(std::string_view title) {
    for (const std::string_view article : {"The ", "A "}) {
        if (title.starts_with(article)) return title.substr(article.size());
    }
    return title;
}

/// The shows grouped by the first letter of the title, without its article.
Reply index(const Request& request, bool withCaptionsOnly) {
    std::map<char, std::vector<const Show*>> groups;
    for (const Show* show : catalogue().programmes()) {
        if (!isOnChannel(*show, request) || (withCaptionsOnly && !hasCaptions(*show))) continue;
        groups[withoutArticle(show->title).front()].push_back(show);
    }
    JSON items = JSON::array();
    for (auto& [letter, shows] : groups) {
        std::sort(shows.begin(), shows.end(), [](const Show* a, const Show* b) {
            return withoutArticle(a->title) < withoutArticle(b->title);
        });
        items.push_back({{"name", std::string(1, letter)}, {"items", listOf(shows)}});
    }
    return answered({{"items", items}, {"_links", {{"alert", {{"id", alertShownAt("shows")}}}}}});
}

Reply related(const Request& request, const Captures& captures) {
    const Show* show = catalogue().show(captures[0]);
    if (show == nullptr) return failure(404, "No show is called " + captures[0]);
    auto shows = showsRelatedTo(*show);
    std::erase_if(shows, [&](const Show* other) { return !isOnChannel(*other, request); });
    return answered(
        {{"items", listOf(shows)}, {"_links", {{"self", {{"href", "/related/show/" + captures[0]}}}}}});
}

Reply search(const Request& request, const Captures&) {
    const std::string keyword = request.queryValue("keyword");
    auto shows = showsFoundBy(keyword);
    std::erase_if(shows, [&](const Show* show) { return !isOnChannel(*show, request); });
    return answered({{"results", {{"items", listOf(shows)}}}, {"_meta", {{"keyword", keyword}}}});
}

}  // namespace

std::vector<Route> showRoutes() {
    return {
        {"GET", "v2/show/{name}", oneShow},
        {"GET", "v2/show/{name}/series/{id}", showWithSeries},
        {"GET", "v2/show/{name}/video/{houseNumber}", showWithVideo},
        {"GET", "v2/series/{id}", oneSeries},
        {"GET", "v2/shows", [](const Request& request, const Captures&) { return index(request, false); }},
        {"GET", "v2/shows/cc", [](const Request& request, const Captures&) { return index(request, true); }},
        {"GET", "v2/shows/", severalShows},
        {"GET", "v2/shows/{names}", severalShows},
        {"GET", "v2/related/show/{name}", related},
        {"GET", "v2/search", search},
    };
}

}  // namespace VanticRestKit::sample
