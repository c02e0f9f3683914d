#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace sample {

/// A programme. One without series holds a single video: a film, a trailer or a live channel.
struct Show {
    unsigned id;
    std::string code;  // house numbers begin with it
    std::string slug;
    std::string title;
    std::string type;  // of its videos: "episode", "feature", "trailer", "livestream"
    std::string channel;
    std::string channelTitle;
    std::string category;
    std::string classification;
    std::string description;
    std::string participantsTitle;
    std::string participants;
    std::vector<std::string> tags;
    std::vector<std::vector<std::string>> series;  // the titles of the episodes, by series
};

struct Video {
    const Show* show;
    unsigned id;
    std::string houseNumber;
    std::string title;
    unsigned series;   // from 1; 0 where the show has none
    unsigned episode;  // from 1; 0 where the show has none
    const Video* next;  // the episode behind this one, or null
};

/// All made up, the same at every start.
class Catalogue {
public:
    explicit Catalogue(std::vector<Show> shows);
    Catalogue(const Catalogue&) = delete;
    Catalogue& operator=(const Catalogue&) = delete;

    const std::vector<Show>& shows() const { return shows_; }
    const std::vector<Video>& videos() const { return videos_; }

    /// Null where no video has this house number.
    const Video* video(const std::string& houseNumber) const;

private:
    std::vector<Show> shows_;
    std::vector<Video> videos_;
    std::map<std::string, const Video*> byHouseNumber_;
};

/// The programmes, in Shows.cpp.
std::vector<Show> madeUpShows();

const Catalogue& catalogue();

}  // namespace sample
