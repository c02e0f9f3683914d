#pragma once

#include <deque>
#include <map>
#include <string>
#include <vector>

namespace VanticRestKit::sample {

class Catalogue;

/// A programme. One without series holds a single video: a film, a trailer or a live channel.
struct Show {
    unsigned id;
    std::string code;  // house numbers begin with it
    std::string slug;
    std::string title;
    std::string type;      // of its videos: "episode", "feature", "trailer", "livestream"
    std::string channel;   // its id
    std::string category;  // its id
    std::string classification;
    std::string description;
    std::string participantsTitle;
    std::string participants;
    std::vector<std::string> tags;
    std::vector<std::vector<std::string>> series;  // the titles of the episodes, by series
    const Catalogue* catalogue = nullptr;          // that contains it; set by that catalogue
};

struct Region;

struct Video {
    const Show* show;
    unsigned id;
    std::string houseNumber;
    std::string title;
    unsigned series;       // from 1; 0 if the show has none
    unsigned episode;      // from 1; 0 if the show has none
    const Video* next;     // the episode after this one, or null
    const Region* region;  // of a live channel's variant; otherwise null
};

/// A series of a show, found in the catalogue by its id.
struct Series {
    const Show* show;
    unsigned id;
    unsigned number;  // from 1
    std::vector<const Video*> episodes;
};

/// Shows with their series and videos.
class Catalogue {
public:
    explicit Catalogue(std::vector<Show> shows);
    Catalogue(const Catalogue&) = delete;
    Catalogue& operator=(const Catalogue&) = delete;

    const std::vector<Show>& shows() const { return shows_; }
    const std::deque<Video>& videos() const { return videos_; }

    /// These return null if there is none with this name.
    const Video* video(const std::string& houseNumber) const;
    const Show* show(const std::string& slugOrId) const;
    const Series* series(const std::string& id) const;

    /// The shows of the index: no trailers and no live channels.
    std::vector<const Show*> programmes() const;
    std::vector<const Series*> seriesOf(const Show& show) const;
    /// The videos of a show in order: its episodes, or its only one.
    std::vector<const Video*> videosOf(const Show& show) const;
    /// The trailers of a show.
    std::vector<const Video*> extrasOf(const Show& show) const;
    /// The live channels of a region, or of the whole country if null.
    std::vector<const Video*> livestreams(const Region* region) const;

private:
    void addEpisodes(const Show& show);
    void addSingle(const Show& show);

    std::vector<Show> shows_;
    std::deque<Video> videos_;
    std::deque<Series> series_;
    std::map<std::string, const Video*> byHouseNumber_;
};

/// The fictional catalogue of the service; the same at every start.
const Catalogue& catalogue();

// The tables, each in its own file in tables/.
std::vector<Show> drama();
std::vector<Show> documentaries();
std::vector<Show> lifestyle();
std::vector<Show> children();
std::vector<Show> comedy();
std::vector<Show> news();
std::vector<Show> films();
std::vector<Show> liveChannels();

}  // namespace VanticRestKit::sample
