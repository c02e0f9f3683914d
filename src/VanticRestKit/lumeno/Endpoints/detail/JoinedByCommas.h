#pragma once

// Joins names into one path component, for the routes of several videos and several shows.

#include <string>
#include <vector>

namespace VanticRestKit::detail {

/// The names, separated by commas and not escaped.
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
