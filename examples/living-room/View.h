#pragma once

// What the screens show, made of the entities of the service: the values that templates are filled with.

#include "Context.h"

namespace living_room {

/// A show, a series or a video: kind, title, subtitle, description, link, picture, facts, badges.
Value::Object tileOf(const CollectionItem& item, const Service& service);
/// The same over the whole width: also kicker, playLink and playTitle.
Value::Object heroOf(const CollectionItem& item, const Service& service);
Value::List tilesOf(const std::vector<CollectionItem>& items, const Service& service);
/// Videos with their progress, by the records of a history: position and length in seconds.
Value::List tilesOf(const std::vector<Video>& videos, const std::vector<HistoryData>& history,
                    const Service& service);
/// A livestream with what it sends now and next: title, subtitle, start, end and length of each.
Value channelOf(const Video& live, const NowNext& schedule, const Service& service);

/// One thing that a video plays: type, text, technologies, levels, chosen (the level), stream (its address), captions.
Value::Object playlistItemOf(const PlaylistItem& item, const Service& service);

/// A row that loads its tiles from `address`.
Value rowOf(std::string title, std::string address);

/// The page of a show or video by a path that the service sent.
std::string pageOf(const std::string& href);
/// Where a browser gets a picture; empty if it is not one of the service's.
std::string pictureLink(const std::optional<std::string>& address, const Service& service);
/// Where a browser gets a stream or captions: at this host, if they are the service's, else where they are.
std::string streamLink(const std::string& address, const Service& service);

/// Paths of the service that browsers may get through this host. Nothing else of it can be reached by them.
bool isPicturePath(const std::string& path);
bool isStreamPath(const std::string& path);

/// "2:05" or "1:02:05".
std::string clockText(std::int64_t seconds);

}  // namespace living_room
