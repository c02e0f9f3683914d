#pragma once

// The files of the host that browsers load. The build makes the source of this header from them.

#include <string_view>

namespace living_room::assets {

/// `living-room.css`, `living-room.js` and `living-room.svg`.
extern const std::string_view css;
extern const std::string_view js;
extern const std::string_view svg;

}  // namespace living_room::assets
