#include "catalogue/Catalogue.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

#include "catalogue/Tables.h"

namespace VanticRestKit::sample {

namespace {

std::string houseNumberOf(const Show& show, unsigned series, unsigned episode) {
    char text[16];
    std::snprintf(text, sizeof text, "%02u%02u", series % 100, episode % 100);
    return show.code + text;
}

/// The short form would not be unique for shows with more than nine episodes in a series.
unsigned idOf(const Show& show, unsigned series, unsigned episode) {
    const bool isLong = std::any_of(show.series.begin(), show.series.end(),
                                    [](const auto& episodes) { return episodes.size() > 9; });
    return isLong ? (show.id * 100 + series) * 1000 + episode : show.id * 100 + series * 10 + episode;
}

std::string upperCase(std::string text) {
    for (char& letter : text) {
        if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
    }
    return text;
}

std::vector<Show> madeUpShows() {
    std::vector<Show> all;
    for (auto* table : {drama, documentaries, lifestyle, children, comedy, news, films, liveChannels}) {
        auto shows = table();
        std::move(shows.begin(), shows.end(), std::back_inserter(all));
    }
    return all;
}

template <class Wanted, class All, class Fits>
std::vector<const Wanted*> picked(const All& all, Fits fits) {
    std::vector<const Wanted*> found;
    for (const auto& one : all) {
        if (fits(one)) found.push_back(&one);
    }
    return found;
}

}  // namespace

Catalogue::Catalogue(std::vector<Show> shows) : shows_(std::move(shows)) {
    for (Show& show : shows_) {
        show.catalogue = this;
        if (show.series.empty()) {
            addSingle(show);
        } else {
            addEpisodes(show);
        }
    }
    for (const Video& video : videos_) byHouseNumber_[video.houseNumber] = &video;
}

void Catalogue::addEpisodes(const Show& show) {
    Video* before = nullptr;
    for (unsigned number = 1; number <= show.series.size(); ++number) {
        series_.push_back({&show, show.id * 10 + number, number, {}});
        const auto& titles = show.series[number - 1];
        for (unsigned episode = 1; episode <= titles.size(); ++episode) {
            videos_.push_back({&show, idOf(show, number, episode), houseNumberOf(show, number, episode),
                               titles[episode - 1], number, episode, nullptr, nullptr});
            series_.back().episodes.push_back(&videos_.back());
            if (before != nullptr) before->next = &videos_.back();
            before = &videos_.back();
        }
    }
}

// A live channel is broadcast once for the whole country and once for each region.
void Catalogue::addSingle(const Show& show) {
    const auto houseNumber = houseNumberOf(show, 0, 1);
    unsigned id = show.id * 100;
    videos_.push_back({&show, id, houseNumber, show.title, 0, 0, nullptr, nullptr});
    if (show.type != "livestream") return;
    for (const Region& region : regions()) {
        videos_.push_back({&show, ++id, houseNumber + upperCase(region.id), show.title + ", " + region.title,
                           0, 0, nullptr, &region});
    }
}

const Video* Catalogue::video(const std::string& houseNumber) const {
    const auto found = byHouseNumber_.find(houseNumber);
    return found == byHouseNumber_.end() ? nullptr : found->second;
}

const Show* Catalogue::show(const std::string& slugOrId) const {
    for (const Show& show : shows_) {
        if (show.slug == slugOrId || std::to_string(show.id) == slugOrId) return &show;
    }
    return nullptr;
}

const Series* Catalogue::series(const std::string& id) const {
    for (const Series& series : series_) {
        if (std::to_string(series.id) == id) return &series;
    }
    return nullptr;
}

std::vector<const Show*> Catalogue::programmes() const {
    return picked<Show>(shows_,
                        [](const Show& show) { return show.type == "episode" || show.type == "feature"; });
}

std::vector<const Series*> Catalogue::seriesOf(const Show& show) const {
    return picked<Series>(series_, [&](const Series& series) { return series.show == &show; });
}

std::vector<const Video*> Catalogue::videosOf(const Show& show) const {
    return picked<Video>(videos_,
                         [&](const Video& video) { return video.show == &show && video.region == nullptr; });
}

std::vector<const Video*> Catalogue::extrasOf(const Show& show) const {
    return picked<Video>(videos_,
                         [&](const Video& video) { return video.show->slug == show.slug + "-trailer"; });
}

std::vector<const Video*> Catalogue::livestreams(const Region* region) const {
    return picked<Video>(videos_, [&](const Video& video) {
        return video.show->type == "livestream" && video.region == region;
    });
}

const Catalogue& catalogue() {
    static const Catalogue& made = *new Catalogue(madeUpShows());
    return made;
}

}  // namespace VanticRestKit::sample
