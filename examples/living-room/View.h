#pragma once

// What the screens show, made of the entities of the service: texts, links and numbers, and no markup.

#include "Context.h"

#include <VanticRestKit/lumeno/MixedCollection/MixedCollection.h>
#include <VanticRestKit/lumeno/NowNext/NowNext.h>
#include <VanticRestKit/lumeno/Playlist/PlaylistItem.h>
#include <VanticRestKit/lumeno/Show/Show.h>
#include <VanticRestKit/lumeno/Video/VideoList.h>
#include <VanticRestKit/trelvo/History/HistoryData.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace living_room {

/// How much of a programme has been watched or sent, in seconds.
struct ViewProgress {
    std::int64_t position = 0;
    std::int64_t length = 0;
};

struct ViewBadge {
    /// "new", "live", "expires" or "unavailable": how it is coloured.
    std::string kind{};
    std::string text{};
};

/// A show, a series or a video as a tile of a row.
struct ViewTile {
    /// "Show", "Series" or "Video".
    std::string kind{};
    std::string title{};
    std::string subtitle{};
    std::string description{};
    /// The page that it opens.
    std::string link{};
    /// The address of its picture at this host; empty if it has none.
    std::string picture{};
    std::string duration{};
    std::string classification{};
    std::vector<ViewBadge> badges{};
    std::optional<ViewProgress> progress{};
};

/// A featured item over the whole width.
struct ViewHero {
    ViewTile tile{};
    std::string kicker{};
    /// The page that plays it; empty if nothing can be played.
    std::string playLink{};
    std::string playTitle{};
};

/// A live channel with its programmes.
struct ViewChannel {
    ViewTile tile{};
    std::optional<VanticRestKit::NowNextContainer> now{};
    std::optional<VanticRestKit::NowNextContainer> next{};
};

/// A level of quality that can be played.
struct ViewLevel {
    std::string name{};
    /// Where the browser gets it: at this host, or elsewhere if the service has its streams there.
    std::string address{};
};

/// One thing that a video plays: the programme, or what comes before it.
struct ViewPlaylistItem {
    /// "program", "rating" and so on.
    std::string type{};
    std::string title{};
    /// The technologies in which it comes, such as "HLS, MPEG-DASH (protected)".
    std::string technologies{};
    /// Of its HLS stream, the best first.
    std::vector<ViewLevel> levels{};
    /// The level that the library chose; empty if there is none.
    std::string chosen{};
    std::string captions{};
};

ViewTile tileOf(const VanticRestKit::CollectionItem& item, const Service& service);
ViewTile tileOf(const VanticRestKit::Video& video, const Service& service);
ViewHero heroOf(const VanticRestKit::CollectionItem& item, const Service& service);
std::vector<ViewTile> tilesOf(const VanticRestKit::MixedCollection& row, const Service& service);

/// The videos with how far each was watched, by the records of a history.
std::vector<ViewTile> tilesOf(const std::vector<VanticRestKit::Video>& videos,
                              const std::vector<VanticRestKit::HistoryData>& history, const Service& service);

ViewPlaylistItem playlistItemOf(const VanticRestKit::PlaylistItem& item, const Service& service);

/// The page of a show, series or video by a path that the service sent.
std::string pageOf(const std::string& href);
/// Where a browser gets a picture; empty if it is not one of the service's.
std::string pictureLink(const std::optional<std::string>& address, const Service& service);
/// Where a browser gets a stream or captions: at this host, if it is one of the service's, else where it is.
std::string streamLink(const std::string& address, const Service& service);

/// Paths of the service that browsers may get through this host. Nothing else of it can be reached by them.
bool isPicturePath(const std::string& path);
bool isStreamPath(const std::string& path);

/// "2:05" or "1:02:05".
std::string clockText(std::int64_t seconds);

}  // namespace living_room
