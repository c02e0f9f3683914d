#pragma once

// Several names as one part of a path, which the routes to several videos and to several shows share.

#include <string>
#include <vector>

namespace VanticRestKit::detail {

/// The names with a comma between each two, unescaped.
inline std::string joinedByCommas(const std::vector<std::string>& names) {
    std::string joined;
    const char* separator = "";
    for (const std::string& name : names) {
        joined += separator + name;
        separator = ",";
    }
    return joined;
}

}  // namespace VanticRestKit::detail
