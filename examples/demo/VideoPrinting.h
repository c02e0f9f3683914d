#pragma once

#include <VanticRestKit/lumeno/Video/Video.h>

#include <vector>

namespace demo {

/// Prints one line for each video.
void printVideos(const std::vector<VanticRestKit::Video>& videos);

/// Prints everything that a host shows of one video, and its playlist.
void printVideo(const VanticRestKit::Video& video);

/// Prints the playlist of a video, and the URL chosen for the player.
void printPlaylist(const std::vector<VanticRestKit::PlaylistItem>& playlist);

}  // namespace demo
