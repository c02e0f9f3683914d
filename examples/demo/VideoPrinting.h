#pragma once

#include <VanticRestKit/lumeno/Video/Video.h>

#include <vector>

namespace demo {

/// One line for each video.
void printVideos(const std::vector<VanticRestKit::Video>& videos);

/// All that a host shows of one video, and what it plays.
void printVideo(const VanticRestKit::Video& video);

/// What a video plays, and the address chosen for the player.
void printPlaylist(const std::vector<VanticRestKit::PlaylistItem>& playlist);

}  // namespace demo
