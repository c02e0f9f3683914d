#pragma once

#include <VanticRestKit/lumeno/Image/Image.h>
#include <VanticRestKit/lumeno/Video/Video.h>
#include <VanticRestKit/platform/date/Date.h>

#include <string>
#include <vector>

namespace demo {

void printHeading(const std::string& text);

/// A label and a text beside it; nothing where the text is empty.
void printField(const char* label, const std::string& text);

void printTime(double secondsSince1970);
void printAvatars(const std::vector<VanticRestKit::Image>& avatars);

/// One line for each video.
void printVideos(const std::vector<VanticRestKit::Video>& videos);

/// All that a host shows of one video, and what it plays.
void printVideo(const VanticRestKit::Video& video);

}  // namespace demo
