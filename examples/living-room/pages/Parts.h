#pragma once

// The parts that screens have in common, as markup.

#include "Pages.h"

#include "../View.h"

#include <string>
#include <vector>

namespace living_room {

/// A whole page: the menu, `content` as its main part, and the panel.
Html pageAround(const Visit& visit, const char* screen, const std::string& title, const Html& content);

/// A part of a screen that the script loads from `address` when it comes into view. Until then it shows its outline:
/// `skeleton` is "hero", "tiles", "text" or "channels".
Html block(const std::string& address, const char* skeleton);
/// A row with a heading whose tiles are such a part.
Html rowBlock(const std::string& title, const std::string& address);

Html tileMarkup(const ViewTile& tile);
Html tilesMarkup(const std::vector<ViewTile>& tiles);
/// The tiles, or a sentence if there are none.
Answer tilesAnswer(const std::vector<ViewTile>& tiles, const char* sentenceIfNone);
Html badgesMarkup(const std::vector<ViewBadge>& badges);
Html progressMarkup(const std::optional<ViewProgress>& progress);
Html channelMarkup(const ViewChannel& channel);
Html emptyMarkup(const std::string& sentence);
/// Duration, classification and the like, in one line.
Html factsMarkup(const std::vector<std::string>& facts);

}  // namespace living_room
