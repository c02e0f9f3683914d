#pragma once

/// \file
/// `joinedByCommas`: several names as one part of a path.

#include <string>
#include <vector>

namespace VanticRestKit {

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

}  // namespace VanticRestKit
