#include "catalogue/Catalogue.h"

#include <cstdio>

namespace sample {

namespace {

std::string houseNumberOf(const Show& show, unsigned series, unsigned episode) {
    char text[16];
    std::snprintf(text, sizeof text, "%02u%02u", series % 100, episode % 100);
    return show.code + text;
}

}  // namespace

Catalogue::Catalogue(std::vector<Show> shows) : shows_(std::move(shows)) {
    for (const Show& show : shows_) {
        if (show.series.empty()) {
            videos_.push_back({&show, show.id * 100, houseNumberOf(show, 0, 1), show.title, 0, 0, nullptr});
        }
        for (unsigned series = 1; series <= show.series.size(); ++series) {
            const auto& titles = show.series[series - 1];
            for (unsigned episode = 1; episode <= titles.size(); ++episode) {
                videos_.push_back({&show, show.id * 100 + series * 10 + episode,
                                   houseNumberOf(show, series, episode), titles[episode - 1], series, episode,
                                   nullptr});
            }
        }
    }
    for (std::size_t i = 0; i < videos_.size(); ++i) {
        byHouseNumber_[videos_[i].houseNumber] = &videos_[i];
        if (i + 1 < videos_.size() && videos_[i + 1].show == videos_[i].show) videos_[i].next = &videos_[i + 1];
    }
}

const Video* Catalogue::video(const std::string& houseNumber) const {
    const auto found = byHouseNumber_.find(houseNumber);
    return found == byHouseNumber_.end() ? nullptr : found->second;
}

const Catalogue& catalogue() {
    static const Catalogue& made = *new Catalogue(madeUpShows());
    return made;
}

}  // namespace sample
