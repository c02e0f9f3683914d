#pragma once

// View models: what the templates show, made of the entities of the service.

#include "Context.h"

namespace living_room {

/// A show, a series or a video: kind, title, subtitle, description, link, picture, facts, badges.
Value tileOf(const CollectionItem& item, const Service& service);
/// The same over the whole width: also kicker, playLink and playTitle.
Value heroOf(const CollectionItem& item, const Service& service);
/// Tiles of shows, videos or collection items.
template <class Items>
Value tilesOf(const Items& items, const Service& service) {
    Value tiles;
    for (const auto& item : items) tiles.push_back(tileOf(item, service));
    return tiles;
}
/// Videos with their progress: position and length in seconds, by the records of a history.
Value tilesOf(const std::vector<Video>& videos, const std::vector<HistoryData>& history,
              const Service& service);
/// A livestream with its programmes, now and next: title, subtitle, start, end and length of each.
Value channelOf(const Video& live, const NowNext& schedule, const Service& service);
/// One thing that a video plays: type, text, technologies, levels, chosen (the level), stream (its address), captions.
Value playlistItemOf(const PlaylistItem& item, const Service& service);

/// The screen of a show or video at this host, which is its path at the service; empty if it is another path.
std::string screenLink(const std::optional<std::string>& href);
/// A picture, a stream or captions at this host, which is its path at the service; empty if it is another address.
std::string fileLink(const std::optional<std::string>& address, const Service& service);
/// Whether browsers may get this path of the service through this host.
bool isFilePath(std::string_view path);

}  // namespace living_room
