#pragma once

// The files of the host, inside of the program. The build makes the source of this header from them.

#include <string_view>

namespace living_room::assets {

/// `living-room.css`, `living-room.js` and `living-room.svg`.
extern const std::string_view css;
extern const std::string_view js;
extern const std::string_view svg;
/// The files of `templates`, one after the other.
extern const std::string_view templates;

}  // namespace living_room::assets
